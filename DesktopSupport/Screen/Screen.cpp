#include "DesktopSupport/Screen/Screen.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "DesktopSupport/Screen/XwaylandWindows.h"
#include "DesktopSupport/Windows/Accessible/AccessibleWindows.h"
#include "DesktopSupport/Windows/GNOMEShell/GNOMEShellWindows.h"
#include "DesktopSupport/Windows/KWin/KWinWindows.h"
#include "DesktopSupport/Windows/Wayland/Compositor.h"
#include "DesktopSupport/Windows/Wayland/ListedToplevels.h"
#include "DesktopSupport/Windows/Wayland/PlasmaWindows.h"
#include "DesktopSupport/Windows/Wayland/WlrootsWindows.h"
#include "DesktopSupport/Windows/X11/X11Connection.h"
#include "DesktopSupport/Windows/X11/X11Windows.h"

namespace DesktopSupport {

namespace {

DisplayServer serverOf(Compositor& compositor) {
  return compositor.isRunning() ? DisplayServer::wayland : DisplayServer::x11;
}

bool isOf(const WindowSource& source, DisplayServer server, Compositor& compositor) {
  return source.server == server && compositor.mayBe(source.compositor);
}

void removeUnknownProcesses(WindowList& list, Compositor& compositor) {
  const bool hasAny = std::ranges::any_of(list.windows, [](const Window& window) { return window.pid.has_value(); });
  if (!hasAny || compositor.numbersProcessesAsHere())
    return;
  for (Window& window : list.windows)
    window.pid.reset();
}

// A compositor's own X server. It is not started for this: then it would have no windows.
void addXwaylandWindows(WindowList& list) {
  if (!needsX11Windows(list) || !hasX11Clients())
    return;
  auto connection = X11Connection::connect(Compositor::longestSilence);
  const auto x11 = connection ? readX11Windows(*connection) : std::unexpected(std::move(connection.error()));
  if (x11)
    addX11Windows(list, *x11);
  else
    list.problems.push_back("The windows of X11 programs could not be asked about: " + x11.error().message);
}

// All that can be known of the windows if the compositor does not tell about them because of a fault.
std::optional<WindowList> xwaylandWindowsAlone() {
  WindowList list{.windows = {}, .isComplete = false};
  addXwaylandWindows(list);
  if (list.windows.empty())
    return std::nullopt;
  list.problems.emplace_back("Only the windows of X11 programs are listed.");
  return list;
}

// Why nobody tells about the windows although nothing failed.
std::string missing(Compositor& compositor, std::span<const WindowSource> sources) {
  if (!compositor.isRunning())
    return "No source of windows is known.";
  std::string features;
  for (const WindowSource& source : sources)
    if (source.server == DisplayServer::wayland)
      features += (features.empty() ? "" : ", ") + std::string(source.feature);
  return compositor.name() + " does not tell other programs about its windows: it has none of " + features + '.';
}

WindowList afterProblems(const std::vector<std::string>& problems, WindowList list) {
  list.problems.insert(list.problems.begin(), problems.begin(), problems.end());
  return list;
}

std::string joined(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& sentence : sentences)
    text += (text.empty() ? "" : " ") + sentence;
  return text;
}

}  // namespace

std::span<const WindowSource> windowSources() {
  static constexpr std::array sources = {gnomeShellWindows, plasmaWindows,     wlrootsWindows, listedToplevels,
                                         kwinWindows,       accessibleWindows, x11Windows};
  return sources;
}

std::expected<WindowList, DesktopError> readWindows(std::span<const WindowSource> sources) {
  Compositor compositor;
  const DisplayServer server = serverOf(compositor);
  std::vector<std::string> problems;
  if (const auto& problem = compositor.problem())
    problems.push_back(*problem);
  for (const WindowSource& source : sources) {
    if (!isOf(source, server, compositor))
      continue;
    auto list = source.windows(compositor);
    if (list) {
      if (server == DisplayServer::wayland) {
        removeUnknownProcesses(*list, compositor);
        addXwaylandWindows(*list);
      }
      return afterProblems(problems, std::move(*list));
    }
    // Sources that share a connection fail with it.
    if (!list.error().isAbsent && std::ranges::find(problems, list.error().message) == problems.end())
      problems.push_back(std::move(list.error().message));
  }
  if (problems.empty())
    problems.push_back(missing(compositor, sources));
  else if (server == DisplayServer::wayland)
    if (auto list = xwaylandWindowsAlone())
      return afterProblems(problems, std::move(*list));
  return std::unexpected(DesktopError{joined(problems)});
}

std::vector<GTKWindowName> readGTKWindows(std::span<const WindowSource> sources) {
  Compositor compositor;
  const DisplayServer server = serverOf(compositor);
  for (const WindowSource& source : sources)
    if (source.gtkWindows != nullptr && isOf(source, server, compositor))
      if (auto windows = source.gtkWindows(compositor); !windows.empty())
        return windows;
  return {};
}

}  // namespace DesktopSupport
