#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"

namespace AppleScript {

/// A number, a text, a class name or any other value that is written down as such.
class LiteralExpression : public Expression {
 public:
  LiteralExpression(Value value, SourceRange range) : Expression(range), value_(std::move(value)) {}

  [[nodiscard]] std::optional<Value> valueAtHand(Run& /*run*/) const override { return value_; }

 private:
  [[nodiscard]] Value compute(Run& /*run*/) const override { return value_; }

  Value value_;
};

}  // namespace AppleScript
