#pragma once

#include <expected>
#include <string>

#include <wayland-client-core.h>

namespace DesktopSupport {

/// The functions of libwayland-client that are used, by their own names without "wl_". It is loaded when a compositor
/// is talked to for the first time, so that a launch on another desktop does not pay for it.
struct WaylandLibrary {
  decltype(&wl_display_connect_to_fd) displayConnectToFD;
  decltype(&wl_display_disconnect) displayDisconnect;
  decltype(&wl_display_get_fd) displayGetFD;
  decltype(&wl_display_prepare_read) displayPrepareRead;
  decltype(&wl_display_cancel_read) displayCancelRead;
  decltype(&wl_display_read_events) displayReadEvents;
  decltype(&wl_display_dispatch_pending) displayDispatchPending;
  decltype(&wl_display_flush) displayFlush;
  decltype(&wl_proxy_add_dispatcher) proxyAddDispatcher;
  decltype(&wl_proxy_destroy) proxyDestroy;
  decltype(&wl_proxy_get_version) proxyGetVersion;
  decltype(&wl_proxy_marshal_array_flags) proxyMarshalArrayFlags;

  /// Fails with a sentence if the library is not installed, or too old.
  static const std::expected<WaylandLibrary, std::string>& load();
};

}  // namespace DesktopSupport
