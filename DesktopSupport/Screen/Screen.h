#pragma once

#include <expected>
#include <span>
#include <vector>

#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The sources that know about windows, the preferred one first. A new source is one more row of the table.
std::span<const WindowSource> windowSources();

/// The windows on the screen, from the first source that tells: of those of Wayland desktops if a compositor takes
/// connections, else of the X server's. The list says which sources failed before. Fails if none tells.
std::expected<WindowList, DesktopError> readWindows(std::span<const WindowSource> sources = windowSources());

/// The GTK windows on the screen, the topmost first, from the first source that knows any.
std::vector<GTKWindowName> readGTKWindows(std::span<const WindowSource> sources = windowSources());

}  // namespace DesktopSupport
