#pragma once

#include <chrono>
#include <expected>

#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The usual timeout for KWin's list and all that it says about the windows.
inline constexpr std::chrono::seconds kwinAnswerTime{5};

/// Reads the windows that KWin finds when it is asked over the session bus to search for any, those of all virtual
/// desktops. It needs no permission, but is slow, since the windows' icons come along. KWin tells neither processes nor
/// the active window, and leaves out dialogs of X11 programs. So the list is never complete. A window that disappears
/// meanwhile is left out. Fails with `isAbsent` if there is no KWin; also if it does not search, describes a window
/// otherwise than known, or does not answer within `patience`.
std::expected<WindowList, DesktopError> readKWinWindows(std::chrono::milliseconds patience = kwinAnswerTime);

/// KWin, the compositor of KDE Plasma, as it answers every program.
inline constexpr WindowSource kwinWindows{.server = DisplayServer::wayland,
                                          .feature = "org.kde.KWin",
                                          .windows = [](Compositor&) { return readKWinWindows(); }};

}  // namespace DesktopSupport
