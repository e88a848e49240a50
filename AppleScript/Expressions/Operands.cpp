#include "AppleScript/Expressions/Operands.h"

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

RecordExpression::RecordExpression(RecordLabels labels, std::vector<ExpressionPointer> values, SourceRange range)
    : Expression(range), labels_(std::move(labels)), values_(std::move(values)) {}

Value RecordExpression::compute(Run& run) const {
  std::vector<Value> values;
  values.reserve(values_.size());
  for (const ExpressionPointer& value : values_)
    values.push_back(value->evaluate(run));
  return Record(labels_, std::move(values));
}

ApplicationExpression::ApplicationExpression(ExpressionPointer name, Application* known, SourceRange range)
    : Expression(range), name_(std::move(name)), known_(known) {}

Value ApplicationExpression::compute(Run& run) const {
  if (known_ != nullptr)
    return ObjectReference{nullptr, known_};
  const Value name = name_->evaluate(run);
  Application* application = run.applications().find(toText(name).view());
  if (application == nullptr)
    failToGet("application " + shortSourceForm(name));
  return ObjectReference{nullptr, application};
}

VariableExpression::VariableExpression(std::string name, std::size_t slot, SourceRange range)
    : Expression(range), name_(std::move(name)), slot_(slot) {}

Value VariableExpression::compute(Run& run) const {
  const std::optional<Value>& value = run.variable(slot_);
  if (!value)
    fail(ErrorNumber::undefinedVariable, "The variable " + name_ + " is not defined.");
  return *value;
}

void VariableExpression::store(Run& run, Value value) const {
  run.variable(slot_) = std::move(value);
}

Value ResultExpression::compute(Run& run) const {
  const auto& result = run.result();
  if (!result)
    fail(ErrorNumber::undefinedVariable, "The variable result is not defined.");
  return *result;
}

void ResultExpression::store(Run& run, Value value) const {
  run.result() = std::move(value);
}

}  // namespace AppleScript
