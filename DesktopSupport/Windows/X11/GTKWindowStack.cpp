#include "DesktopSupport/Windows/X11/GTKWindowStack.h"

#include <ranges>
#include <utility>

#include "DesktopSupport/Windows/X11/X11Atoms.h"
#include "DesktopSupport/Windows/X11/X11Property.h"

namespace DesktopSupport {

namespace {

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

std::vector<GTKWindowName> readGTKWindowStack() {
  auto connection = X11Connection::connect();
  if (!connection)
    return {};
  X11Atoms atoms(*connection);
  atoms.collect(*connection);
  return readNames(*connection, atoms, readStack(*connection, atoms));
}

}  // namespace DesktopSupport
