#pragma once

#include <optional>

#include <xcb/xcb.h>

#include "DesktopSupport/Windows/Window.h"
#include "DesktopSupport/Windows/X11/X11Atoms.h"
#include "DesktopSupport/Windows/X11/X11ClientProcesses.h"
#include "DesktopSupport/Windows/X11/X11Connection.h"

namespace DesktopSupport {

/// The properties of one window, asked for at construction and collected later, so that those of many windows take one
/// round trip together.
class WindowProperties {
 public:
  WindowProperties(X11Connection& connection, const X11Atoms& atoms, xcb_window_t window);

  /// The window; none where it disappeared meanwhile. `processes` must have been collected.
  [[nodiscard]] std::optional<Window> collect(X11Connection& connection, const X11Atoms& atoms,
                                              const X11ClientProcesses& processes) const;

 private:
  xcb_window_t window_;
  xcb_get_property_cookie_t windowClass_;
  xcb_get_property_cookie_t title_;
  xcb_get_property_cookie_t applicationId_;
  xcb_get_property_cookie_t transientFor_;
  xcb_get_property_cookie_t type_;
  xcb_get_property_cookie_t state_;
  xcb_get_property_cookie_t processId_;
  xcb_get_property_cookie_t machine_;
};

}  // namespace DesktopSupport
