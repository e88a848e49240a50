#include "DesktopSupport/Windows/Wayland/WlrootsWindows.h"

#include <algorithm>
#include <span>

#include "DesktopSupport/Windows/Wayland/Protocols.h"
#include "DesktopSupport/Windows/Wayland/Toplevels.h"

namespace DesktopSupport {

namespace {

// The events in the order of the description.
enum ManagerEvent : std::uint32_t { toplevel };
enum HandleEvent : std::uint32_t { title, appID, outputEnter, outputLeave, state, done, closed, parent };

constexpr std::uint32_t minimizedState = 1;
constexpr std::uint32_t activatedState = 2;

void setStates(Toplevel& toplevel, const wl_array& array) {
  const std::span states(static_cast<const std::uint32_t*>(array.data), array.size / sizeof(std::uint32_t));
  const auto has = [&](std::uint32_t state) { return std::ranges::find(states, state) != states.end(); };
  toplevel.window.isHidden = has(minimizedState);
  toplevel.isActive = has(activatedState);
}

void tell(Toplevel& toplevel, std::uint32_t event, const wl_argument* arguments) {
  switch (event) {
    case HandleEvent::title:
      toplevel.window.title = arguments[0].s;
      break;
    case HandleEvent::appID:
      toplevel.setApplicationID(arguments[0].s);
      break;
    case HandleEvent::state:
      setStates(toplevel, *arguments[0].a);
      break;
    case HandleEvent::done:
      toplevel.isTold = true;
      break;
    case HandleEvent::closed:
      toplevel.isClosed = true;
      break;
    case HandleEvent::parent:
      toplevel.parent = objectIn(arguments[0]);
      break;
    default:
      break;
  }
}

}  // namespace

std::expected<WindowList, DesktopError> readWlrootsWindows(Compositor& compositor) {
  return readToplevels(compositor, zwlr_foreign_toplevel_manager_v1_interface, tell);
}

}  // namespace DesktopSupport
