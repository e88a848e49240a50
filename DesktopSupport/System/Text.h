#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace DesktopSupport {

/// The non-empty parts of `list`, a text with a separator between them.
std::vector<std::string_view> separated(std::string_view list, char separator);

/// Parses the whole text as a number in digits of `base`. `nullopt` if it is not a number or does not fit in `Number`.
template <std::integral Number>
std::optional<Number> parseNumber(std::string_view text, int base = 10) {
  Number number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, base);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

/// Whether the text is UTF-8 and without NUL, as GLib and D-Bus take it.
bool isUTF8(std::string_view text);

/// The text with each byte that is not UTF-8, and each NUL, replaced by U+FFFD.
std::string validUTF8(std::string_view text);

}  // namespace DesktopSupport
