#include "DesktopSupport/Screen/Screen.h"

#include <array>

#include "DesktopSupport/Windows/X11/X11Windows.h"

namespace DesktopSupport {

std::span<const WindowSource> windowSources() {
  static constexpr std::array sources = {x11Windows};
  return sources;
}

std::expected<WindowList, DesktopError> readWindows(std::span<const WindowSource> sources) {
  std::expected<WindowList, DesktopError> list = std::unexpected(DesktopError{"No source of windows is known."});
  for (const WindowSource& source : sources)
    if (list = source.windows(); list)
      break;
  return list;
}

std::vector<GTKWindowName> readGTKWindows(std::span<const WindowSource> sources) {
  std::vector<GTKWindowName> windows;
  for (const WindowSource& source : sources)
    if (windows = source.gtkWindows(); !windows.empty())
      break;
  return windows;
}

}  // namespace DesktopSupport
