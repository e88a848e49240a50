#include "DesktopSupport/Windows/X11/WindowProperties.h"

#include <algorithm>
#include <array>
#include <vector>

#include "DesktopSupport/Windows/WindowProcess.h"
#include "DesktopSupport/Windows/X11/X11Property.h"

namespace DesktopSupport {

namespace {

bool contains(const std::vector<std::uint32_t>& atoms, xcb_atom_t atom) {
  return std::ranges::find(atoms, atom) != atoms.end();
}

bool isOrdinary(const X11Atoms& atoms, const std::vector<std::uint32_t>& types,
                const std::vector<std::uint32_t>& states) {
  const auto isPartOfTheDesktop = [&](X11Name type) { return contains(types, atoms[type]); };
  constexpr std::array partsOfTheDesktop = {X11Name::windowTypeDesktop, X11Name::windowTypeDock,
                                            X11Name::windowTypeSplash};
  return std::ranges::none_of(partsOfTheDesktop, isPartOfTheDesktop) &&
         !contains(states, atoms[X11Name::stateSkipTaskbar]);
}

}  // namespace

WindowProperties::WindowProperties(X11Connection& connection, const X11Atoms& atoms, xcb_window_t window)
    : window_(window),
      windowClass_(X11Property::request(connection, window, XCB_ATOM_WM_CLASS)),
      title_(X11Property::request(connection, window, atoms[X11Name::title])),
      applicationId_(X11Property::request(connection, window, atoms[X11Name::gtkApplicationId])),
      transientFor_(X11Property::request(connection, window, XCB_ATOM_WM_TRANSIENT_FOR)),
      type_(X11Property::request(connection, window, atoms[X11Name::windowType])),
      state_(X11Property::request(connection, window, atoms[X11Name::state])),
      processId_(X11Property::request(connection, window, atoms[X11Name::processId])),
      machine_(X11Property::request(connection, window, XCB_ATOM_WM_CLIENT_MACHINE)) {}

std::optional<Window> WindowProperties::collect(X11Connection& connection, const X11Atoms& atoms,
                                                const X11ClientProcesses& processes) const {
  const auto property = [&](xcb_get_property_cookie_t request) { return X11Property(connection, request); };
  const xcb_atom_t utf8 = atoms[X11Name::utf8String];
  const auto classNames = property(windowClass_).texts(utf8);
  const auto states = property(state_).numbers();
  Window window{.id = window_};
  window.instance = classNames.empty() ? "" : classNames[0];
  window.windowClass = classNames.size() < 2 ? "" : classNames[1];
  window.title = property(title_).text(utf8);
  window.applicationId = property(applicationId_).text(utf8);
  window.transientFor = property(transientFor_).number();
  window.isOrdinary = isOrdinary(atoms, property(type_).numbers(), states);
  window.isHidden = contains(states, atoms[X11Name::stateHidden]);
  const auto processId = property(processId_).number();
  const X11Property machine = property(machine_);
  window.pid = localProcess(
      {.ofServer = processes.processOf(connection, window_), .ofWindow = processId, .machine = machine.text(utf8)},
      hostName());
  // The last of the properties asked for: a window that has it still had the others.
  return machine.hasAnswer() ? std::optional(window) : std::nullopt;
}

}  // namespace DesktopSupport
