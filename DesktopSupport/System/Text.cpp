#include "DesktopSupport/System/Text.h"

#include <algorithm>

#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

std::vector<std::string_view> separated(std::string_view list, char separator) {
  std::vector<std::string_view> parts;
  while (!list.empty()) {
    const auto end = std::min(list.find(separator), list.size());
    if (end > 0)
      parts.push_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return parts;
}

bool isUTF8(std::string_view text) {
  return text.empty() || g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE;
}

std::string validUTF8(std::string_view text) {
  if (isUTF8(text))
    return std::string(text);
  const CharsHandle valid(g_utf8_make_valid(text.data(), std::ssize(text)));
  return valid.get();
}

}  // namespace DesktopSupport
