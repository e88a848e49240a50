#pragma once

#include <cstdint>
#include <deque>

#include <wayland-client-core.h>

#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// A window as a compositor tells about it, event by event.
struct Toplevel {
  wl_proxy* object = nullptr;
  /// The object of the window that this one belongs to.
  wl_proxy* parent = nullptr;
  /// Without its `id` and `transientFor`.
  Window window = {};
  bool isActive = false;
  /// Whether everything about it has been told.
  bool isTold = false;
  bool isClosed = false;

  /// A Wayland program has one name, which stands for the id of its desktop entry and for its windows' class.
  void setApplicationID(const char* id);
};

/// In a deque, they stay in place while more are added.
using Toplevels = std::deque<Toplevel>;

/// Those that have been told and not been closed since, in the same order.
WindowList windowsOf(const Toplevels& toplevels);

/// The object that an event made or names.
wl_proxy* objectIn(const wl_argument& argument);

/// Notes what an event tells about a window.
using ToplevelEvent = void (*)(Toplevel& toplevel, std::uint32_t event, const wl_argument* arguments);

/// The windows that a global of the compositor lists if its first event is a new window, in the order in which it does.
/// `tell` handles the windows' events. Takes two round trips, one if the first tells everything. Fails if the
/// compositor does not offer the global or does not answer.
std::expected<WindowList, DesktopError> readToplevels(Compositor& compositor, const wl_interface& manager,
                                                      ToplevelEvent tell);

}  // namespace DesktopSupport
