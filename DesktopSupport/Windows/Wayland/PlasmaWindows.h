#pragma once

#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The windows with all that is known about them, in two round trips. KWin lets programs see them whose desktop entries
/// ask for it with X-KDE-Wayland-Interfaces; to others it does not offer the protocol. The processes are those that
/// the compositor believes in: that of an X11 program is only claimed by it. Fails if the compositor does not offer the
/// protocol or does not answer, and on KWin 5 also if there are more than about a hundred windows: it then breaks off.
std::expected<WindowList, DesktopError> readPlasmaWindows(Compositor& compositor);

/// KWin, the compositor of KDE Plasma, as it answers the programs that it permits.
inline constexpr WindowSource plasmaWindows{
    .server = DisplayServer::wayland, .feature = "org_kde_plasma_window_management", .windows = readPlasmaWindows};

}  // namespace DesktopSupport
