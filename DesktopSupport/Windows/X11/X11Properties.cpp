#include "DesktopSupport/Windows/X11/X11Properties.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "DesktopSupport/System/DisplayableText.h"

namespace DesktopSupport {

namespace {

constexpr std::array<std::string_view, static_cast<std::size_t>(X11Name::count)> names = {
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_SPLASH",
    "_NET_WM_STATE",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "_GTK_APPLICATION_ID",
    "_GTK_UNIQUE_BUS_NAME",
    "_GTK_WINDOW_OBJECT_PATH",
    "UTF8_STRING",
};

constexpr std::uint32_t wordSize = 4;

}  // namespace

X11Atoms::X11Atoms(X11Connection& connection) {
  for (std::size_t index = 0; index < size; ++index) {
    const std::string_view name = names[index];
    requests_[index] = connection.sent(
        connection.library().internAtom(connection.handle(), 0, static_cast<std::uint16_t>(name.size()), name.data()));
  }
}

void X11Atoms::collect(X11Connection& connection) {
  for (std::size_t index = 0; index < size; ++index)
    if (const auto reply = connection.reply<xcb_intern_atom_reply_t>(requests_[index]))
      atoms_[index] = reply->atom;
}

xcb_get_property_cookie_t X11Property::request(X11Connection& connection, xcb_window_t window, xcb_atom_t name) {
  return connection.sent(connection.library().getProperty(connection.handle(), 0, window, name,
                                                          XCB_GET_PROPERTY_TYPE_ANY, 0, maximumSize / wordSize));
}

X11Property::X11Property(X11Connection& connection, xcb_get_property_cookie_t request)
    : reply_(connection.reply<xcb_get_property_reply_t>(request)) {}

std::vector<std::uint32_t> X11Property::numbers() const {
  if (!exists() || reply_->format != 32)
    return {};
  std::vector<std::uint32_t> numbers(reply_->value_len);
  if (!numbers.empty())
    std::memcpy(numbers.data(), value(), numbers.size() * wordSize);
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
  std::string_view bytes(static_cast<const char*>(value()), reply_->value_len);
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
