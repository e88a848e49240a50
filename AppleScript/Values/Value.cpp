#include "AppleScript/Values/Value.h"

#include <algorithm>

#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

namespace {

bool hasText(const Value& value) {
  const auto* list = value.getIf<List>();
  return !value.isMissing() && (list == nullptr || std::ranges::none_of(list->items(), &Value::isMissing));
}

const Value& itemOf(const ItemReference& reference) {
  if (reference.index >= reference.list.size())
    failToGet("item " + std::to_string(reference.index + 1) + " of " + shortSourceForm(reference.list));
  return reference.list.at(reference.index);
}

}  // namespace

std::optional<std::string> Value::stringValue() const {
  try {
    const Value& value = dereferenced(*this);
    return hasText(value) ? std::optional(std::string(toText(value).view())) : std::nullopt;
  } catch (const Failure&) {
    return std::nullopt;
  }
}

const Value& dereferenced(const Value& value) {
  const Value* current = &value;
  for (std::size_t depth = 0; const auto* reference = current->getIf<ItemReference>(); ++depth) {
    if (depth == maximumNesting)
      failOfDepth();
    current = &itemOf(*reference);
  }
  return *current;
}

const Value& dereferenced(const ItemReference& reference) {
  return dereferenced(itemOf(reference));
}

}  // namespace AppleScript
