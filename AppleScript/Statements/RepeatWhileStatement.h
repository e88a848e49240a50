#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/RepeatStatement.h"

namespace AppleScript {

/// `repeat while …` and `repeat until …`.
class RepeatWhileStatement : public RepeatStatement {
 public:
  /// Repeats for as long as `condition` is `expected`.
  RepeatWhileStatement(ExpressionPointer condition, bool expected, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer condition_;
  bool expected_;
};

}  // namespace AppleScript
