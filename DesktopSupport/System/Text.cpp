#include "DesktopSupport/System/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

namespace {

// The text without the words of eight bytes at its beginning that are ASCII and have no NUL.
std::string_view withoutLeadingASCII(std::string_view text) {
  constexpr std::uint64_t ones = 0x0101010101010101;
  constexpr std::uint64_t highBits = 0x8080808080808080;
  std::uint64_t word = 0;
  while (text.size() >= sizeof word) {
    std::memcpy(&word, text.data(), sizeof word);
    // Taking one from each byte sets the high bit of a NUL.
    if (((word | (word - ones)) & highBits) != 0)
      break;
    text.remove_prefix(sizeof word);
  }
  return text;
}

}  // namespace

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
  // Long texts are mostly ASCII, which GLib looks at byte by byte.
  text = withoutLeadingASCII(text);
  return text.empty() || g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE;
}

std::string validUTF8(std::string_view text) {
  if (isUTF8(text))
    return std::string(text);
  const CharsHandle valid(g_utf8_make_valid(text.data(), std::ssize(text)));
  return valid.get();
}

}  // namespace DesktopSupport
