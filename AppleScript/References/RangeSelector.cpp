#include "AppleScript/References/RangeSelector.h"

#include <algorithm>
#include <utility>

#include "AppleScript/Values/BuiltInClasses.h"
#include "AppleScript/Values/Coercions.h"

namespace AppleScript {

namespace {

std::string description(const ClassDescription& elementClass, std::int64_t first, std::int64_t last) {
  return std::string(elementClass.plural) + " " + std::to_string(first) + " thru " + std::to_string(last);
}

}  // namespace

RangeSelector::RangeSelector(ExpressionPointer first, ExpressionPointer last)
    : first_(std::move(first)), last_(std::move(last)) {}

Found RangeSelector::select(Run& run, const Elements& elements) const {
  const std::int64_t firstNumber = toInteger(first_->evaluate(run));
  const std::int64_t lastNumber = toInteger(last_->evaluate(run));
  const std::size_t size = elements.size();
  const auto first = indexFromNumber(firstNumber, size);
  const auto last = indexFromNumber(lastNumber, size);
  if (!first || !last)
    return std::unexpected(description(elements.elementClass(), firstNumber, lastNumber));
  const auto [low, high] = std::minmax(*first, *last);
  return elements.range(low, high - low + 1);
}

std::string RangeSelector::describe(Run& run, const ClassDescription& elementClass) const {
  const auto first = first_->valueAtHand(run);
  const auto last = last_->valueAtHand(run);
  return first && last ? description(elementClass, toInteger(*first), toInteger(*last))
                       : std::string(elementClass.plural);
}

}  // namespace AppleScript
