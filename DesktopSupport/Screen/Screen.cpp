#include "DesktopSupport/Screen/Screen.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "DesktopSupport/Windows/Accessible/AccessibleWindows.h"
#include "DesktopSupport/Windows/GNOMEShell/GNOMEShellWindows.h"
#include "DesktopSupport/Windows/Wayland/Compositor.h"
#include "DesktopSupport/Windows/X11/X11Windows.h"

namespace DesktopSupport {

namespace {

DisplayServer serverOf(Compositor& compositor) {
  return compositor.isRunning() ? DisplayServer::wayland : DisplayServer::x11;
}

}  // namespace

std::span<const WindowSource> windowSources() {
  static constexpr std::array sources = {gnomeShellWindows, accessibleWindows, x11Windows};
  return sources;
}

std::expected<WindowList, DesktopError> readWindows(std::span<const WindowSource> sources) {
  Compositor compositor;
  const DisplayServer server = serverOf(compositor);
  std::vector<std::string> problems;
  if (compositor.problem())
    problems.push_back(*compositor.problem());
  DesktopError last{.message = "No source of windows is known.", .isAbsent = true};
  for (const WindowSource& source : sources) {
    if (source.server != server)
      continue;
    auto list = source.windows(compositor);
    if (list) {
      list->problems.insert(list->problems.begin(), problems.begin(), problems.end());
      return list;
    }
    if (!list.error().isAbsent)
      problems.push_back(list.error().message);
    last = std::move(list.error());
  }
  return std::unexpected(std::move(last));
}

std::vector<GTKWindowName> readGTKWindows(std::span<const WindowSource> sources) {
  Compositor compositor;
  const DisplayServer server = serverOf(compositor);
  for (const WindowSource& source : sources)
    if (source.server == server && source.gtkWindows != nullptr)
      if (auto windows = source.gtkWindows(compositor); !windows.empty())
        return windows;
  return {};
}

}  // namespace DesktopSupport
