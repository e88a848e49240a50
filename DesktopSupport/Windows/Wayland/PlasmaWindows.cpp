#include "DesktopSupport/Windows/Wayland/PlasmaWindows.h"

#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "DesktopSupport/Windows/Wayland/Compositor.h"
#include "DesktopSupport/Windows/Wayland/Protocols.h"
#include "DesktopSupport/Windows/Wayland/Toplevels.h"
#include "DesktopSupport/Windows/Wayland/WaylandConnection.h"

namespace DesktopSupport {

namespace {

// The requests and events in the order of the description.
enum ManagerRequest : std::uint32_t { showDesktop, getWindow, getWindowByUUID, getStackingOrder };
enum ManagerEvent : std::uint32_t {
  showDesktopChanged,
  newWindow,
  stackingOrderChanged,
  stackingOrderUUIDChanged,
  newWindowWithUUID
};
enum WindowEvent : std::uint32_t {
  titleChanged,
  appIDChanged,
  stateChanged,
  virtualDesktopChanged,
  themedIconNameChanged,
  unmapped,
  initialState,
  parentWindow,
  geometry,
  iconChanged,
  pidChanged,
  virtualDesktopEntered,
  virtualDesktopLeft,
  applicationMenu,
  activityEntered,
  activityLeft,
  resourceNameChanged
};
enum StackingOrderEvent : std::uint32_t { windowAbove };

constexpr std::uint32_t firstWithInitialState = 4;
constexpr std::uint32_t firstWithStackingOrder = 17;

constexpr std::uint32_t activeState = 1U << 0U;
constexpr std::uint32_t minimizedState = 1U << 1U;
constexpr std::uint32_t skipTaskbarState = 1U << 12U;

constexpr wl_argument newObject{.o = nullptr};

void setStates(Toplevel& toplevel, std::uint32_t states) {
  toplevel.isActive = (states & activeState) != 0;
  toplevel.window.isHidden = (states & minimizedState) != 0;
  toplevel.window.isOrdinary = (states & skipTaskbarState) == 0;
}

void tell(Toplevel& toplevel, std::uint32_t event, const wl_argument* arguments) {
  switch (event) {
    case WindowEvent::titleChanged:
      toplevel.window.title = arguments[0].s;
      break;
    case WindowEvent::appIDChanged:
      toplevel.setApplicationID(arguments[0].s);
      break;
    case WindowEvent::stateChanged:
      setStates(toplevel, arguments[0].u);
      break;
    case WindowEvent::unmapped:
      toplevel.isClosed = true;
      break;
    case WindowEvent::initialState:
      toplevel.isTold = true;
      break;
    case WindowEvent::parentWindow:
      toplevel.parent = objectIn(arguments[0]);
      break;
    case WindowEvent::pidChanged:
      toplevel.window.pid = static_cast<pid_t>(arguments[0].u);
      break;
    case WindowEvent::resourceNameChanged:
      toplevel.window.instance = arguments[0].s;
      break;
    default:
      break;
  }
}

// What the compositor has told so far.
struct Told {
  WaylandConnection& connection;
  wl_proxy* manager;
  Toplevels toplevels = {};
  // The windows' ids by the compositor's names for them. Which name is used depends on the version.
  std::unordered_map<std::string, WindowID> ids = {};
  // The names in stacking order.
  std::vector<std::string> stack = {};
};

using SharedTold = std::shared_ptr<Told>;

void addWindow(const SharedTold& told, wl_proxy* object, std::initializer_list<std::string> names) {
  Toplevel& toplevel = told->toplevels.emplace_back(Toplevel{.object = object});
  for (const std::string& name : names)
    told->ids.emplace(name, told->toplevels.size());
  told->connection.listen(object, [told, &toplevel](std::uint32_t event, const wl_argument* arguments) {
    tell(toplevel, event, arguments);
  });
}

void setStack(Told& told, const wl_array& array) {
  told.stack.clear();
  for (const std::uint32_t number :
       std::span(static_cast<const std::uint32_t*>(array.data), array.size / sizeof(std::uint32_t)))
    told.stack.push_back(std::to_string(number));
}

void manage(const SharedTold& told, std::uint32_t event, const wl_argument* arguments) {
  const auto request = [&](ManagerRequest kind, const wl_argument& name) {
    return told->connection.request(told->manager, kind, {newObject, name}, &org_kde_plasma_window_interface);
  };
  switch (event) {
    case ManagerEvent::newWindow:
      addWindow(told, request(getWindow, arguments[0]), {std::to_string(arguments[0].u)});
      break;
    case ManagerEvent::newWindowWithUUID:
      addWindow(told, request(getWindowByUUID, arguments[1]), {std::to_string(arguments[0].u), arguments[1].s});
      break;
    case ManagerEvent::stackingOrderChanged:
      setStack(*told, *arguments[0].a);
      break;
    default:
      break;
  }
}

void requestStackingOrder(const SharedTold& told) {
  wl_proxy* const order =
      told->connection.request(told->manager, getStackingOrder, {newObject}, &org_kde_plasma_stacking_order_interface);
  told->connection.listen(order, [told](std::uint32_t event, const wl_argument* arguments) {
    if (event == windowAbove)
      told->stack.emplace_back(arguments[0].s);
  });
}

// A title without a number like " <2>" at its end. After the number of an X11 program's window, there is a mark for the
// direction of writing.
std::string withoutNumber(const std::string& title) {
  constexpr std::string_view mark = "\u200E";
  std::string_view text = title;
  if (text.ends_with(mark))
    text.remove_suffix(mark.size());
  const auto begin = text.rfind(" <");
  if (begin == std::string_view::npos || !text.ends_with('>'))
    return title;
  const std::string_view number = text.substr(begin + 2, text.size() - begin - 3);
  const bool isNumber = !number.empty() && number.find_first_not_of("0123456789") == std::string_view::npos;
  return isNumber ? std::string(text.substr(0, begin)) : title;
}

// KWin numbers the windows that have the same title.
void removeNumbers(std::vector<Window>& windows) {
  std::unordered_set<std::string> titles;
  for (const Window& window : windows)
    titles.insert(window.title);
  for (Window& window : windows)
    if (std::string title = withoutNumber(window.title); titles.contains(title))
      window.title = std::move(title);
}

WindowList listOf(const Told& told) {
  WindowList list = windowsOf(told.toplevels);
  removeNumbers(list.windows);
  std::unordered_set<WindowID> listed;
  for (const Window& window : list.windows)
    listed.insert(window.id);
  for (const std::string& name : told.stack)
    if (const auto id = told.ids.find(name); id != told.ids.end() && listed.contains(id->second))
      list.stack.push_back(id->second);
  return list;
}

}  // namespace

std::expected<WindowList, DesktopError> readPlasmaWindows(Compositor& compositor) {
  const auto connected = compositor.connection();
  if (!connected)
    return std::unexpected(connected.error());
  WaylandConnection& connection = **connected;
  wl_proxy* const manager = connection.bind(org_kde_plasma_window_management_interface, firstWithInitialState);
  if (manager == nullptr)
    return std::unexpected(
        DesktopError{.message = "The compositor does not offer org_kde_plasma_window_management to this program.",
                     .isAbsent = true});

  // The connection may outlive this function, and then events still arrive.
  const SharedTold told = std::make_shared<Told>(Told{.connection = connection, .manager = manager});
  connection.listen(manager,
                    [told](std::uint32_t event, const wl_argument* arguments) { manage(told, event, arguments); });
  if (connection.versionOf(manager) >= firstWithStackingOrder)
    requestStackingOrder(told);
  // The first round trip brings the windows, the second what there is to tell about them.
  for (int trip = 0; trip < 2; ++trip)
    if (auto answer = connection.roundTrip(); !answer)
      return std::unexpected(std::move(answer.error()));
  return listOf(*told);
}

}  // namespace DesktopSupport
