#include "BrowserSessions/Chromium/DevTools/HTTPAnswer.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

namespace BrowserSessions {

namespace {

std::optional<std::size_t> number(std::string_view text) {
  std::size_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

// The size that the head of a successful answer gives for its content.
std::optional<std::size_t> contentSize(std::string head) {
  std::ranges::transform(head, head.begin(), g_ascii_tolower);
  constexpr std::string_view field = "\r\ncontent-length:";
  const auto start = head.find(field);
  if (!head.starts_with("http/1.1 200 ") || start == std::string::npos)
    return std::nullopt;
  const std::string_view rest = std::string_view(head).substr(start + field.size());
  const auto digits = rest.find_first_not_of(" \t");
  return digits < rest.find('\r') ? number(rest.substr(digits, rest.find('\r') - digits)) : std::nullopt;
}

}  // namespace

std::optional<std::string> readHTTPContent(LocalConnection& connection, std::size_t maximumSize) {
  const auto head = connection.readTo("\r\n\r\n", maximumSize);
  const auto size = head ? contentSize(*head) : std::nullopt;
  return size && *size <= maximumSize ? connection.read(*size) : std::nullopt;
}

}  // namespace BrowserSessions
