#include "BrowserSessions/Chromium/DevTools/HTTPAnswer.h"

#include <algorithm>
#include <string_view>

#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

// The size that the head of a successful answer gives for its content.
std::optional<std::size_t> contentSize(std::string head) {
  std::ranges::transform(head, head.begin(), g_ascii_tolower);
  constexpr std::string_view field = "\r\ncontent-length:";
  const auto start = head.find(field);
  if (!head.starts_with("http/1.1 200 ") || start == std::string::npos)
    return std::nullopt;
  const std::string_view rest = std::string_view(head).substr(start + field.size());
  const auto digits = rest.find_first_not_of(" \t");
  const auto end = rest.find('\r');
  return digits < end ? DesktopSupport::parseNumber<std::size_t>(rest.substr(digits, end - digits)) : std::nullopt;
}

}  // namespace

std::optional<std::string> readHTTPContent(LocalConnection& connection, std::size_t maximumSize) {
  const auto head = connection.readTo("\r\n\r\n", maximumSize);
  const auto size = head ? contentSize(*head) : std::nullopt;
  return size && *size <= maximumSize ? connection.read(*size) : std::nullopt;
}

}  // namespace BrowserSessions
