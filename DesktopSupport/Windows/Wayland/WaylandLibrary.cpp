#include "DesktopSupport/Windows/Wayland/WaylandLibrary.h"

#include "DesktopSupport/System/SharedLibrary.h"

namespace DesktopSupport {

namespace {

std::expected<WaylandLibrary, std::string> loaded() {
  SharedLibrary library("libwayland-client.so.0");
  WaylandLibrary functions = {};
  library.find("wl_display_connect_to_fd", functions.displayConnectToFD);
  library.find("wl_display_disconnect", functions.displayDisconnect);
  library.find("wl_display_get_fd", functions.displayGetFD);
  library.find("wl_display_prepare_read", functions.displayPrepareRead);
  library.find("wl_display_cancel_read", functions.displayCancelRead);
  library.find("wl_display_read_events", functions.displayReadEvents);
  library.find("wl_display_dispatch_pending", functions.displayDispatchPending);
  library.find("wl_display_flush", functions.displayFlush);
  library.find("wl_proxy_add_dispatcher", functions.proxyAddDispatcher);
  library.find("wl_proxy_destroy", functions.proxyDestroy);
  library.find("wl_proxy_get_version", functions.proxyGetVersion);
  library.find("wl_proxy_marshal_array_flags", functions.proxyMarshalArrayFlags);
  return library.with(functions);
}

}  // namespace

const std::expected<WaylandLibrary, std::string>& WaylandLibrary::load() {
  static const std::expected<WaylandLibrary, std::string> library = loaded();
  return library;
}

}  // namespace DesktopSupport
