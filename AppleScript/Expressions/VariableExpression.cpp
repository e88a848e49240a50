#include "AppleScript/Expressions/VariableExpression.h"

#include <utility>

#include "AppleScript/Values/Failure.h"

namespace AppleScript {

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

}  // namespace AppleScript
