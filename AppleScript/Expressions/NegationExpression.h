#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Operators/Arithmetic.h"

namespace AppleScript {

/// `-x`.
class NegationExpression : public Expression {
 public:
  NegationExpression(ExpressionPointer operand, SourceRange range) : Expression(range), operand_(std::move(operand)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override { return negated(operand_->evaluate(run)); }

  ExpressionPointer operand_;
};

}  // namespace AppleScript
