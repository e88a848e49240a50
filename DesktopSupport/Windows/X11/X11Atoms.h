#pragma once

#include <array>
#include <cstddef>

#include <xcb/xcb.h>

#include "DesktopSupport/Windows/X11/X11Connection.h"

namespace DesktopSupport {

/// The names that window managers and windows use and that the X server has no fixed number for.
enum class X11Name : std::size_t {
  activeWindow,
  clientList,
  clientListStacking,
  supportingWindowManagerCheck,
  windowType,
  windowTypeDesktop,
  windowTypeDock,
  windowTypeSplash,
  state,
  stateHidden,
  stateSkipTaskbar,
  title,
  processId,
  gtkApplicationId,
  gtkUniqueBusName,
  gtkWindowObjectPath,
  utf8String,
  count,
};

/// Their numbers on one server.
class X11Atoms {
 public:
  /// Asks for all of them; the numbers are there after `collect`.
  explicit X11Atoms(X11Connection& connection);
  void collect(X11Connection& connection);

  [[nodiscard]] xcb_atom_t operator[](X11Name name) const { return atoms_[static_cast<std::size_t>(name)]; }

 private:
  static constexpr std::size_t size = static_cast<std::size_t>(X11Name::count);
  std::array<xcb_intern_atom_cookie_t, size> requests_ = {};
  std::array<xcb_atom_t, size> atoms_ = {};
};

}  // namespace DesktopSupport
