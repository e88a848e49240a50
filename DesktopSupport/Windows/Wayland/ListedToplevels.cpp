#include "DesktopSupport/Windows/Wayland/ListedToplevels.h"

#include "DesktopSupport/Windows/Wayland/Protocols.h"
#include "DesktopSupport/Windows/Wayland/Toplevels.h"

namespace DesktopSupport {

namespace {

// The events in the order of the description.
enum HandleEvent : std::uint32_t { closed, done, title, appID };

void tell(Toplevel& toplevel, std::uint32_t event, const wl_argument* arguments) {
  switch (event) {
    case HandleEvent::closed:
      toplevel.isClosed = true;
      break;
    case HandleEvent::done:
      toplevel.isTold = true;
      break;
    case HandleEvent::title:
      toplevel.window.title = arguments[0].s;
      break;
    case HandleEvent::appID:
      toplevel.setApplicationID(arguments[0].s);
      break;
    default:
      break;
  }
}

}  // namespace

std::expected<WindowList, DesktopError> readListedToplevels(Compositor& compositor) {
  return readToplevels(compositor, ext_foreign_toplevel_list_v1_interface, tell);
}

}  // namespace DesktopSupport
