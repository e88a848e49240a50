#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"

namespace AppleScript {

/// `exists window 1`: whether the reference leads to something.
class ExistsExpression : public Expression {
 public:
  ExistsExpression(ExpressionPointer reference, SourceRange range)
      : Expression(range), reference_(std::move(reference)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override;

  ExpressionPointer reference_;
};

}  // namespace AppleScript
