#pragma once

#include <vector>

#include "AppleScript/Expressions/Expression.h"

namespace AppleScript {

/// `{a, b}`: a new list each time it is evaluated; as the target of `set`, a pattern.
class ListExpression : public Expression {
 public:
  ListExpression(std::vector<ExpressionPointer> items, SourceRange range);

  [[nodiscard]] bool isAssignable() const override;

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  void store(Run& run, Value value) const override;

  std::vector<ExpressionPointer> items_;
};

}  // namespace AppleScript
