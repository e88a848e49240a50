#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"

namespace AppleScript {

/// `get …`: the value itself, where a reference alone would go on to stand for many objects.
class GetExpression : public Expression {
 public:
  GetExpression(ExpressionPointer inner, SourceRange range) : Expression(range), inner_(std::move(inner)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override { return inner_->evaluate(run); }

  ExpressionPointer inner_;
};

}  // namespace AppleScript
