#pragma once

#include "AppleScript/Expressions/Expression.h"

namespace AppleScript {

/// `it`: what the innermost `tell` block addresses, or the object that a filter looks at.
class TargetExpression : public Expression {
 public:
  using Expression::Expression;

  [[nodiscard]] std::optional<Value> valueAtHand(Run& run) const override { return run.target(); }

 private:
  [[nodiscard]] Value compute(Run& run) const override { return run.target(); }
};

}  // namespace AppleScript
