#include "AppleScript/Expressions/Expression.h"

#include <utility>

namespace AppleScript {

Value Expression::evaluate(Run& run) const {
  return atThisPlace([&] { return compute(run); });
}

Selection Expression::select(Run& run) const {
  return atThisPlace([&] { return computeSelection(run); });
}

void Expression::assign(Run& run, Value value) const {
  atThisPlace([&] { store(run, std::move(value)); });
}

// Overriding functions keep the value.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void Expression::store(Run& /*run*/, Value /*value*/) const {
  fail(ErrorNumber::cantSet, "Can’t set this expression.");
}

}  // namespace AppleScript
