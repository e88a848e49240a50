#include "AppleScript/Expression.h"

#include <utility>

#include "AppleScript/Failure.h"

namespace AppleScript {

namespace {

/// Does `work`; an error in it that has no place in the source yet happened at `range`.
template <typename Work>
auto at(const SourceRange& range, Work work) {
  try {
    return work();
  } catch (Failure& failure) {
    if (failure.error.range.length == 0) {
      failure.error.range = range;
    }
    throw;
  }
}

}  // namespace

Value Expression::evaluate(Run& run) const {
  return at(range_, [&] { return compute(run); });
}

Selection Expression::select(Run& run) const {
  return at(range_, [&] { return computeSelection(run); });
}

void Expression::assign(Run& run, Value value) const {
  at(range_, [&] { store(run, std::move(value)); });
}

void Expression::store(Run& /*run*/, Value /*value*/) const {
  fail(ErrorNumber::cantSet, "Can’t set this expression.");
}

}  // namespace AppleScript
