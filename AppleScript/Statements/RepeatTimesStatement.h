#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/RepeatStatement.h"

namespace AppleScript {

/// `repeat n times`.
class RepeatTimesStatement : public RepeatStatement {
 public:
  RepeatTimesStatement(ExpressionPointer times, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer times_;
};

}  // namespace AppleScript
