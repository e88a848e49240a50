#include "AppleScript/Expressions/ListExpression.h"

#include <algorithm>
#include <utility>

#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

ListExpression::ListExpression(std::vector<ExpressionPointer> items, SourceRange range)
    : Expression(range), items_(std::move(items)) {}

bool ListExpression::isAssignable() const {
  return !items_.empty() && std::ranges::all_of(items_, [](const auto& item) { return item->isAssignable(); });
}

Value ListExpression::compute(Run& run) const {
  std::vector<Value> values;
  values.reserve(items_.size());
  for (const ExpressionPointer& item : items_)
    values.push_back(item->evaluate(run));
  return List(std::move(values));
}

void ListExpression::store(Run& run, Value value) const {
  // The values are held apart: setting an early target must not change what a later one gets.
  const List list = toList(value);
  const std::vector<Value> values(list.items().begin(), list.items().end());
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (i == values.size())
      failToGet("item " + std::to_string(i + 1) + " of " + shortSourceForm(value));
    items_[i]->assign(run, values[i]);
  }
}

}  // namespace AppleScript
