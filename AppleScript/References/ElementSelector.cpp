#include "AppleScript/References/ElementSelector.h"

namespace AppleScript {

std::optional<std::size_t> ElementSelector::locate(Run& /*run*/, const Elements& /*elements*/) const {
  return std::nullopt;
}

std::optional<std::size_t> indexFromNumber(std::int64_t number, std::size_t size) {
  const auto last = static_cast<std::int64_t>(size);
  if (number == 0 || number > last || number < -last)
    return std::nullopt;
  return static_cast<std::size_t>(number > 0 ? number - 1 : last + number);
}

}  // namespace AppleScript
