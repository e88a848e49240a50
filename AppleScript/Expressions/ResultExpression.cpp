#include "AppleScript/Expressions/ResultExpression.h"

#include <utility>

#include "AppleScript/Values/Failure.h"

namespace AppleScript {

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
