#include "AppleScript/Values/Value.h"

#include <algorithm>

#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Dereference.h"
#include "AppleScript/Values/Failure.h"

namespace AppleScript {

namespace {

bool hasText(const Value& value) {
  const auto* list = value.getIf<List>();
  return !value.isMissing() && (list == nullptr || std::ranges::none_of(list->items(), &Value::isMissing));
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

}  // namespace AppleScript
