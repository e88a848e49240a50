#include "AppleScript/References/KeySelector.h"

#include <utility>

#include "AppleScript/References/PropertySearch.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Dereference.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

namespace {

std::optional<std::size_t> indexOf(Run& run, const Elements& elements, const Value& key) {
  return key.is<Text>() ? findByProperty(run, elements, "name", key) : indexFromNumber(toInteger(key), elements.size());
}

std::string description(const ClassDescription& elementClass, const Value& key) {
  return std::string(elementClass.name) + " " + shortSourceForm(key);
}

}  // namespace

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

}  // namespace AppleScript
