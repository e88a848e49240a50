#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/RepeatStatement.h"

namespace AppleScript {

/// `repeat with i from a to b by c`. The bounds are evaluated once.
class RepeatRangeStatement : public RepeatStatement {
 public:
  struct Bounds {
    ExpressionPointer first;
    ExpressionPointer last;
    /// Null for steps of 1.
    ExpressionPointer step;
  };

  RepeatRangeStatement(ExpressionPointer variable, Bounds bounds, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer variable_;
  Bounds bounds_;
};

}  // namespace AppleScript
