#include "DesktopSupport/Windows/X11/X11Property.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "DesktopSupport/System/DisplayableText.h"

namespace DesktopSupport {

namespace {

constexpr std::uint32_t wordSize = 4;

}  // namespace

xcb_get_property_cookie_t X11Property::request(X11Connection& connection, xcb_window_t window, xcb_atom_t name) {
  return connection.sent(
      xcb_get_property(connection.handle(), 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, maximumSize / wordSize));
}

X11Property::X11Property(X11Connection& connection, xcb_get_property_cookie_t request)
    : X11Property(connection.reply<xcb_get_property_reply_t>(request)) {}

std::vector<std::uint32_t> X11Property::numbers() const {
  if (!exists() || reply_->format != 32)
    return {};
  std::vector<std::uint32_t> numbers(reply_->value_len);
  if (!numbers.empty())
    std::memcpy(numbers.data(), xcb_get_property_value(reply_.get()), numbers.size() * wordSize);
  return numbers;
}

std::optional<std::uint32_t> X11Property::number() const {
  const auto all = numbers();
  return all.empty() ? std::nullopt : std::optional(all.front());
}

std::vector<std::string> X11Property::texts(xcb_atom_t utf8String) const {
  std::vector<std::string> texts;
  if (!exists() || reply_->format != 8)
    return texts;
  std::string_view bytes(static_cast<const char*>(xcb_get_property_value(reply_.get())), reply_->value_len);
  while (!bytes.empty()) {
    const std::string_view part = bytes.substr(0, bytes.find('\0'));
    texts.push_back(reply_->type == utf8String ? std::string(part) : utf8FromLatin1(part));
    bytes.remove_prefix(std::min(part.size() + 1, bytes.size()));
  }
  return texts;
}

std::string X11Property::text(xcb_atom_t utf8String) const {
  const auto all = texts(utf8String);
  return all.empty() ? "" : all.front();
}

}  // namespace DesktopSupport
