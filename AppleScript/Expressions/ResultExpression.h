#pragma once

#include "AppleScript/Expressions/Expression.h"

namespace AppleScript {

/// `result`: the value of the last statement that had one. Scripts may set it like a variable.
class ResultExpression : public Expression {
 public:
  using Expression::Expression;

  [[nodiscard]] bool isAssignable() const override { return true; }
  [[nodiscard]] std::optional<Value> valueAtHand(Run& run) const override { return run.result(); }

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  void store(Run& run, Value value) const override;
};

}  // namespace AppleScript
