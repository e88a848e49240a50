#pragma once

#include <expected>

#include "DesktopSupport/System/DesktopError.h"
#include "DesktopSupport/Windows/Window.h"
#include "DesktopSupport/Windows/X11/X11Connection.h"

namespace DesktopSupport {

/// Reads the windows that the window manager lists, in three round trips however many they are. A window that
/// disappears meanwhile is left out. Fails where there is no window manager, or one that does not list windows, or
/// where the server does not answer.
std::expected<WindowList, DesktopError> readWindows(X11Connection& connection);

/// The same for the display that DISPLAY names.
std::expected<WindowList, DesktopError> readWindows();

}  // namespace DesktopSupport
