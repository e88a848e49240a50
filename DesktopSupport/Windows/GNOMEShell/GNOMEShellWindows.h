#pragma once

#include <chrono>
#include <expected>
#include <vector>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// How long GNOME Shell may take to list its windows.
inline constexpr std::chrono::seconds gnomeShellTime{3};

/// The windows in an answer of the Shell's extension, Companions/GNOMEShell. Fails if the answer is malformed, longer
/// than 16 MiB, or from a version of the extension that means something else by it.
std::expected<WindowList, DesktopError> gnomeShellWindowsIn(GVariant* answer);

/// The GTK windows in the same answer, the topmost first. Empty if it cannot be read.
std::vector<GTKWindowName> gnomeShellGTKWindowsIn(GVariant* answer);

/// Asks the extension for the windows of GNOME Shell. Fails with `isAbsent` if the Shell or the extension does not run,
/// and otherwise if no sound answer comes within `timeout`.
std::expected<WindowList, DesktopError> readGNOMEShellWindows(const SessionBus& bus,
                                                              std::chrono::milliseconds timeout = gnomeShellTime);

/// The same on the running session bus.
std::expected<WindowList, DesktopError> readGNOMEShellWindows();

/// The GTK windows of GNOME Shell, the topmost first. Empty if the extension does not tell.
std::vector<GTKWindowName> readGNOMEShellGTKWindows();

/// GNOME Shell with the extension.
inline constexpr WindowSource gnomeShellWindows{.server = DisplayServer::wayland,
                                                .feature = "com.quillary.Gleanery.Windows",
                                                .windows = [](Compositor&) { return readGNOMEShellWindows(); },
                                                .gtkWindows = [](Compositor&) { return readGNOMEShellGTKWindows(); },
                                                .compositor = "gnome-shell"};

}  // namespace DesktopSupport
