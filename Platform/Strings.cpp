#include "Platform/Strings.h"

namespace Platform {

std::string formatted(std::string text, std::string_view argument) {
  constexpr std::string_view placeholder = "%@";
  const auto place = text.find(placeholder);
  if (place != std::string::npos)
    text.replace(place, placeholder.size(), argument);
  return text;
}

}  // namespace Platform
