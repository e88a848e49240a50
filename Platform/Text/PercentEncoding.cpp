#include "Platform/Text/PercentEncoding.h"

#include <array>
#include <optional>

namespace Platform {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF";

constexpr std::array<bool, 256> pathAllowed = [] {
  std::array<bool, 256> allowed{};
  for (const char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"
                                       "-._~!$&'()*+,;=:@/"))
    allowed[static_cast<unsigned char>(c)] = true;
  return allowed;
}();

std::optional<unsigned> hexValue(char digit) {
  if (digit >= '0' && digit <= '9')
    return static_cast<unsigned>(digit - '0');
  const char lower = static_cast<char>(digit | 0x20);
  if (lower >= 'a' && lower <= 'f')
    return static_cast<unsigned>(lower - 'a' + 10);
  return std::nullopt;
}

std::optional<char> escapedByte(std::string_view escape) {
  if (escape.size() < 3 || escape[0] != '%')
    return std::nullopt;
  const auto high = hexValue(escape[1]);
  const auto low = hexValue(escape[2]);
  if (!high || !low)
    return std::nullopt;
  return static_cast<char>(*high * 16 + *low);
}

}  // namespace

std::string percentEncodedPath(std::string_view text) {
  std::size_t length = text.size();
  for (const char character : text)
    if (!pathAllowed[static_cast<unsigned char>(character)])
      length += 2;
  std::string encoded(length, '\0');
  auto end = encoded.begin();
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (pathAllowed[byte]) {
      *end++ = character;
    } else {
      *end++ = '%';
      *end++ = hexDigits[byte / 16];
      *end++ = hexDigits[byte % 16];
    }
  }
  return encoded;
}

std::string percentDecoded(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  while (!text.empty()) {
    const auto byte = escapedByte(text);
    decoded += byte.value_or(text.front());
    text.remove_prefix(byte ? 3 : 1);
  }
  return decoded;
}

}  // namespace Platform
