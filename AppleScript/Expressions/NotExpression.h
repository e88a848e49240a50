#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Values/Coercions.h"

namespace AppleScript {

/// `not x`.
class NotExpression : public Expression {
 public:
  NotExpression(ExpressionPointer operand, SourceRange range) : Expression(range), operand_(std::move(operand)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override { return !toBoolean(operand_->evaluate(run)); }

  ExpressionPointer operand_;
};

}  // namespace AppleScript
