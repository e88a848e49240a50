#include "DesktopSupport/Windows/X11/X11Atoms.h"

#include <string_view>

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

}  // namespace

X11Atoms::X11Atoms(X11Connection& connection) {
  for (std::size_t index = 0; index < size; ++index) {
    const std::string_view name = names[index];
    requests_[index] =
        connection.sent(xcb_intern_atom(connection.handle(), 0, static_cast<std::uint16_t>(name.size()), name.data()));
  }
}

void X11Atoms::collect(X11Connection& connection) {
  for (std::size_t index = 0; index < size; ++index)
    if (const auto reply = connection.reply<xcb_intern_atom_reply_t>(requests_[index]))
      atoms_[index] = reply->atom;
}

}  // namespace DesktopSupport
