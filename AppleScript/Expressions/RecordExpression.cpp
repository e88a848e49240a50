#include "AppleScript/Expressions/RecordExpression.h"

#include <utility>

namespace AppleScript {

RecordExpression::RecordExpression(RecordLabels labels, std::vector<ExpressionPointer> values, SourceRange range)
    : Expression(range), labels_(std::move(labels)), values_(std::move(values)) {}

Value RecordExpression::compute(Run& run) const {
  std::vector<Value> values;
  values.reserve(values_.size());
  for (const ExpressionPointer& value : values_)
    values.push_back(value->evaluate(run));
  return Record(labels_, std::move(values));
}

}  // namespace AppleScript
