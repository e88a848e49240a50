#pragma once

#include <expected>
#include <vector>

#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

class X11Connection;

/// Reads the windows that the window manager lists, in three round trips whatever their number. A window that
/// disappears meanwhile is left out. Fails if there is no window manager, if it does not list its windows, or if the
/// server does not answer.
std::expected<WindowList, DesktopError> readX11Windows(X11Connection& connection);

/// The same for the display that DISPLAY names.
std::expected<WindowList, DesktopError> readX11Windows();

/// The GTK windows on the display that DISPLAY names, the topmost first. Empty if there is no server, or no window
/// manager that tells the order.
std::vector<GTKWindowName> readX11GTKWindows();

/// The X server that DISPLAY names.
inline constexpr WindowSource x11Windows{.server = DisplayServer::x11,
                                         .feature = "_NET_CLIENT_LIST",
                                         .windows = [](Compositor&) { return readX11Windows(); },
                                         .gtkWindows = [](Compositor&) { return readX11GTKWindows(); }};

}  // namespace DesktopSupport
