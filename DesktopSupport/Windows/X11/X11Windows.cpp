#include "DesktopSupport/Windows/X11/X11Windows.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <utility>

#include "DesktopSupport/Windows/X11/X11Processes.h"
#include "DesktopSupport/Windows/X11/X11Properties.h"

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

// The properties of one window. They are asked for by the constructor and collected later, so that those of many
// windows take one round trip together.
class WindowRequest {
 public:
  WindowRequest(X11Connection& connection, const X11Atoms& atoms, xcb_window_t window);

  // The window; `nullopt` if it disappeared meanwhile. `processes` must have been collected.
  [[nodiscard]] std::optional<Window> collect(X11Connection& connection, const X11Atoms& atoms,
                                              const X11ClientProcesses& processes) const;

 private:
  xcb_window_t window_;
  xcb_get_property_cookie_t windowClass_;
  xcb_get_property_cookie_t title_;
  xcb_get_property_cookie_t applicationID_;
  xcb_get_property_cookie_t transientFor_;
  xcb_get_property_cookie_t type_;
  xcb_get_property_cookie_t state_;
  xcb_get_property_cookie_t processID_;
  xcb_get_property_cookie_t machine_;
};

WindowRequest::WindowRequest(X11Connection& connection, const X11Atoms& atoms, xcb_window_t window)
    : window_(window),
      windowClass_(X11Property::request(connection, window, XCB_ATOM_WM_CLASS)),
      title_(X11Property::request(connection, window, atoms[X11Name::title])),
      applicationID_(X11Property::request(connection, window, atoms[X11Name::gtkApplicationID])),
      transientFor_(X11Property::request(connection, window, XCB_ATOM_WM_TRANSIENT_FOR)),
      type_(X11Property::request(connection, window, atoms[X11Name::windowType])),
      state_(X11Property::request(connection, window, atoms[X11Name::state])),
      processID_(X11Property::request(connection, window, atoms[X11Name::processID])),
      machine_(X11Property::request(connection, window, XCB_ATOM_WM_CLIENT_MACHINE)) {}

std::optional<Window> WindowRequest::collect(X11Connection& connection, const X11Atoms& atoms,
                                             const X11ClientProcesses& processes) const {
  const auto property = [&](xcb_get_property_cookie_t request) { return X11Property(connection, request); };
  const xcb_atom_t utf8 = atoms[X11Name::utf8String];
  const auto classNames = property(windowClass_).texts(utf8);
  const auto states = property(state_).numbers();
  Window window{.id = window_};
  window.instance = classNames.empty() ? "" : classNames[0];
  window.windowClass = classNames.size() < 2 ? "" : classNames[1];
  window.title = property(title_).text(utf8);
  window.applicationID = property(applicationID_).text(utf8);
  window.transientFor = property(transientFor_).number();
  window.isOrdinary = isOrdinary(atoms, property(type_).numbers(), states);
  window.isHidden = contains(states, atoms[X11Name::stateHidden]);
  const auto processID = property(processID_).number();
  const X11Property machine = property(machine_);
  window.pid = localProcess({.ofServer = processes.processOf(connection, window_),
                             .ofWindow = processID,
                             .machine = machine.text(utf8),
                             .isServerForeign = processes.areForeign()},
                            hostName());
  // The last property that was asked for: if the window still had it, it had the others too.
  return machine.hasAnswer() ? std::optional(window) : std::nullopt;
}

// What the window manager says on the root window.
struct Desktop {
  std::optional<xcb_window_t> managerCheck;
  std::optional<std::vector<xcb_window_t>> clients;
  std::vector<xcb_window_t> stack;
  std::optional<xcb_window_t> active;
};

Desktop readDesktop(X11Connection& connection, const X11Atoms& atoms) {
  const auto request = [&](X11Name name) { return X11Property::request(connection, connection.root(), atoms[name]); };
  const auto managerCheck = request(X11Name::supportingWindowManagerCheck);
  const auto clients = request(X11Name::clientList);
  const auto stack = request(X11Name::clientListStacking);
  const auto active = request(X11Name::activeWindow);
  Desktop desktop;
  desktop.managerCheck = X11Property(connection, managerCheck).number();
  const X11Property list(connection, clients);
  if (list.exists())
    desktop.clients = list.numbers();
  desktop.stack = X11Property(connection, stack).numbers();
  desktop.active = X11Property(connection, active).number();
  return desktop;
}

DesktopError failure(const X11Connection& connection, const char* reason) {
  return {connection.isAlive() ? reason : "The X server does not answer."};
}

WindowList collect(X11Connection& connection, const X11Atoms& atoms, const std::vector<WindowRequest>& requests,
                   const X11ClientProcesses& processes) {
  WindowList list;
  list.windows.reserve(requests.size());
  for (const WindowRequest& request : requests)
    if (auto window = request.collect(connection, atoms, processes))
      list.windows.push_back(std::move(*window));
  return list;
}

struct NameRequests {
  xcb_get_property_cookie_t connection;
  xcb_get_property_cookie_t path;
};

std::vector<std::uint32_t> readStack(X11Connection& connection, const X11Atoms& atoms) {
  const auto request = X11Property::request(connection, connection.root(), atoms[X11Name::clientListStacking]);
  return X11Property(connection, request).numbers();
}

std::vector<GTKWindowName> readNames(X11Connection& connection, const X11Atoms& atoms,
                                     const std::vector<std::uint32_t>& stack) {
  std::vector<NameRequests> requests;
  for (const xcb_window_t window : stack | std::views::reverse)
    requests.push_back({X11Property::request(connection, window, atoms[X11Name::gtkUniqueBusName]),
                        X11Property::request(connection, window, atoms[X11Name::gtkWindowObjectPath])});
  const auto text = [&](xcb_get_property_cookie_t request) {
    return X11Property(connection, request).text(atoms[X11Name::utf8String]);
  };
  std::vector<GTKWindowName> names;
  for (const NameRequests& request : requests) {
    GTKWindowName name{.connection = text(request.connection), .path = text(request.path)};
    if (!name.path.empty())
      names.push_back(std::move(name));
  }
  return names;
}

}  // namespace

std::expected<WindowList, DesktopError> readX11Windows(X11Connection& connection) {
  X11ClientProcesses::prefetch(connection);
  X11Atoms atoms(connection);
  atoms.collect(connection);
  Desktop desktop = readDesktop(connection, atoms);
  if (!desktop.managerCheck)
    return std::unexpected(failure(connection, "There is no window manager."));
  if (!desktop.clients)
    return std::unexpected(failure(connection, "The window manager does not list its windows."));

  const auto check =
      X11Property::request(connection, *desktop.managerCheck, atoms[X11Name::supportingWindowManagerCheck]);
  X11ClientProcesses processes(connection, *desktop.clients);
  std::vector<WindowRequest> requests;
  requests.reserve(desktop.clients->size());
  for (const xcb_window_t window : *desktop.clients)
    requests.emplace_back(connection, atoms, window);

  // A window manager that has gone may leave its list, but not the window that vouches for it.
  if (X11Property(connection, check).number() != desktop.managerCheck)
    return std::unexpected(failure(connection, "There is no window manager."));
  processes.collect(connection);
  WindowList list = collect(connection, atoms, requests, processes);
  list.stack.assign(desktop.stack.begin(), desktop.stack.end());
  list.active = desktop.active;
  if (!connection.isAlive())
    return std::unexpected(failure(connection, ""));
  return list;
}

std::expected<WindowList, DesktopError> readX11Windows() {
  auto connection = X11Connection::connect();
  if (!connection)
    return std::unexpected(connection.error());
  return readX11Windows(*connection);
}

std::vector<GTKWindowName> readX11GTKWindows() {
  auto connection = X11Connection::connect();
  if (!connection)
    return {};
  X11Atoms atoms(*connection);
  atoms.collect(*connection);
  return readNames(*connection, atoms, readStack(*connection, atoms));
}

}  // namespace DesktopSupport
