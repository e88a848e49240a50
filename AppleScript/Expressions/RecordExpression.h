#pragma once

#include <vector>

#include "AppleScript/Expressions/Expression.h"

namespace AppleScript {

/// `{name:"x", size:1}`: a new record each time it is evaluated.
class RecordExpression : public Expression {
 public:
  /// As many values as labels.
  RecordExpression(RecordLabels labels, std::vector<ExpressionPointer> values, SourceRange range);

 private:
  [[nodiscard]] Value compute(Run& run) const override;

  RecordLabels labels_;
  std::vector<ExpressionPointer> values_;
};

}  // namespace AppleScript
