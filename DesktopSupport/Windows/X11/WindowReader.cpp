#include "DesktopSupport/Windows/X11/WindowReader.h"

#include <utility>

#include "DesktopSupport/Windows/X11/WindowProperties.h"
#include "DesktopSupport/Windows/X11/X11Property.h"

namespace DesktopSupport {

namespace {

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

WindowList collect(X11Connection& connection, const X11Atoms& atoms, const std::vector<WindowProperties>& requests,
                   const X11ClientProcesses& processes) {
  WindowList list;
  list.windows.reserve(requests.size());
  for (const WindowProperties& request : requests)
    if (auto window = request.collect(connection, atoms, processes))
      list.windows.push_back(std::move(*window));
  return list;
}

}  // namespace

std::expected<WindowList, DesktopError> readWindows(X11Connection& connection) {
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
  std::vector<WindowProperties> requests;
  requests.reserve(desktop.clients->size());
  for (const xcb_window_t window : *desktop.clients)
    requests.emplace_back(connection, atoms, window);

  // A window manager that is gone may leave its list behind, but not the window that vouches for it.
  if (X11Property(connection, check).number() != desktop.managerCheck)
    return std::unexpected(failure(connection, "There is no window manager."));
  processes.collect(connection);
  WindowList list = collect(connection, atoms, requests, processes);
  list.stack = std::move(desktop.stack);
  list.active = desktop.active;
  if (!connection.isAlive())
    return std::unexpected(failure(connection, ""));
  return list;
}

std::expected<WindowList, DesktopError> readWindows() {
  auto connection = X11Connection::connect();
  if (!connection)
    return std::unexpected(connection.error());
  return readWindows(*connection);
}

}  // namespace DesktopSupport
