#pragma once

#include <cstddef>
#include <string>

#include "AppleScript/Expressions/Expression.h"

namespace AppleScript {

/// A variable, by the place that the parser gave to it.
class VariableExpression : public Expression {
 public:
  VariableExpression(std::string name, std::size_t slot, SourceRange range);

  [[nodiscard]] bool isAssignable() const override { return true; }
  [[nodiscard]] std::optional<Value> valueAtHand(Run& run) const override { return run.variable(slot_); }

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  void store(Run& run, Value value) const override;

  std::string name_;
  std::size_t slot_;
};

}  // namespace AppleScript
