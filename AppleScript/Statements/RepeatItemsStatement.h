#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/RepeatStatement.h"

namespace AppleScript {

/// `repeat with x in list`: the variable is a reference to one item after the other.
class RepeatItemsStatement : public RepeatStatement {
 public:
  RepeatItemsStatement(ExpressionPointer variable, ExpressionPointer list, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer variable_;
  ExpressionPointer list_;
};

}  // namespace AppleScript
