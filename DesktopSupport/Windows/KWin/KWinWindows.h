#pragma once

#include <chrono>
#include <expected>
#include <string>
#include <vector>

#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The usual timeout for KWin's list and all that it says about the windows.
inline constexpr std::chrono::seconds kwinAnswerTime{3};

/// The ids of the windows in what a search yields, of type a(sss?da{sv}), each once.
std::vector<std::string> kwinWindowIDsIn(GVariant* results);

/// The window that KWin describes, without its `id`. `description` has the type a{sv}. Fails if a value is missing or
/// has another type.
std::expected<Window, DesktopError> kwinWindowIn(GVariant* description);

/// Reads the windows that KWin finds when it is asked over the session bus to search for any, those of all virtual
/// desktops. It needs no permission, but is slow, since the windows' icons come along. KWin tells neither processes nor
/// the active window, and leaves out dialogs of X11 programs. So the list is never complete. A window that disappears
/// meanwhile is left out. Fails with `isAbsent` if there is no KWin; also if it does not search, describes a window
/// otherwise than known, or does not answer within `patience`.
std::expected<WindowList, DesktopError> readKWinWindows(std::chrono::milliseconds patience = kwinAnswerTime);

/// KWin, the compositor of KDE Plasma, as it answers every program.
inline constexpr WindowSource kwinWindows{.server = DisplayServer::wayland,
                                          .feature = "org.kde.KWin",
                                          .windows = [](Compositor&) { return readKWinWindows(); },
                                          .compositor = "kwin_wayland"};

}  // namespace DesktopSupport
