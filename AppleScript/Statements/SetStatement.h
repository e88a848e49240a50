#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statement.h"

namespace AppleScript {

/// `set x to value`, which shares lists and records, and `copy value to x`, which does not.
class SetStatement : public Statement {
 public:
  enum class Sharing { shared, copied };

  SetStatement(ExpressionPointer target, ExpressionPointer value, Sharing sharing);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer target_;
  ExpressionPointer value_;
  Sharing sharing_;
};

}  // namespace AppleScript
