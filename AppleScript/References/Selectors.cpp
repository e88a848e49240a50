#include "AppleScript/References/Selectors.h"

#include <algorithm>
#include <string>
#include <utility>

#include "AppleScript/Operators/Comparison.h"
#include "AppleScript/References/ReferenceForms.h"
#include "AppleScript/Values/BuiltIns.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/SourceForm.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

namespace {

std::optional<std::size_t> indexOf(Run& run, const Elements& elements, const Value& key) {
  return key.is<Text>() ? findByProperty(run, elements, "name", key) : indexFromNumber(toInteger(key), elements.size());
}

std::string description(const ClassDescription& elementClass, const Value& key) {
  return std::string(elementClass.name) + " " + shortSourceForm(key);
}

std::string description(const ClassDescription& elementClass, std::int64_t first, std::int64_t last) {
  return std::string(elementClass.plural) + " " + std::to_string(first) + " thru " + std::to_string(last);
}

}  // namespace

std::optional<std::size_t> ElementSelector::locate(Run& /*run*/, const Elements& /*elements*/) const {
  return std::nullopt;
}

std::optional<std::size_t> indexFromNumber(std::int64_t number, std::size_t size) {
  const auto last = static_cast<std::int64_t>(size);
  if (number == 0 || number > last || number < -last)
    return std::nullopt;
  return static_cast<std::size_t>(number > 0 ? number - 1 : last + number);
}

Found SomeSelector::select(Run& run, const Elements& elements) const {
  const std::size_t size = elements.size();
  return size == 0 ? std::unexpected(describe(run, elements.elementClass()))
                   : Found(elements.at(run.randomIndex(size)));
}

Found MiddleSelector::select(Run& run, const Elements& elements) const {
  const std::size_t size = elements.size();
  return size == 0 ? std::unexpected(describe(run, elements.elementClass())) : Found(elements.at((size - 1) / 2));
}

KeySelector::KeySelector(ExpressionPointer key, Style style) : key_(std::move(key)), style_(style) {}

Found KeySelector::select(Run& run, const Elements& elements) const {
  const Value key = dereferenced(key_->evaluate(run));
  const auto index = indexOf(run, elements, key);
  return index ? Found(elements.at(*index)) : std::unexpected(description(elements.elementClass(), key));
}

std::optional<std::size_t> KeySelector::locate(Run& run, const Elements& elements) const {
  return indexOf(run, elements, dereferenced(key_->evaluate(run)));
}

std::string KeySelector::describe(Run& run, const ClassDescription& elementClass) const {
  const auto key = key_->valueAtHand(run);
  return key ? description(elementClass, *key) : std::string(elementClass.name);
}

Found IDSelector::select(Run& run, const Elements& elements) const {
  const Value id = dereferenced(id_->evaluate(run));
  const auto index = findByProperty(run, elements, "id", id);
  if (!index)
    return std::unexpected(std::string(elements.elementClass().name) + " id " + shortSourceForm(id));
  return elements.at(*index);
}

std::string IDSelector::describe(Run& run, const ClassDescription& elementClass) const {
  const auto id = id_->valueAtHand(run);
  return std::string(elementClass.name) + (id ? " id " + shortSourceForm(*id) : "");
}

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

std::optional<std::size_t> findByProperty(Run& run, const Elements& elements, std::string_view property,
                                          const Value& value) {
  const PropertyForm form{std::string(property)};
  const std::size_t size = elements.size();
  for (std::size_t i = 0; i < size; ++i) {
    const Found found = form.find(run, elements.at(i));
    if (found && areEqual(*found, value))
      return i;
  }
  return std::nullopt;
}

}  // namespace AppleScript
