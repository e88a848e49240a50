#include "DesktopSupport/Windows/Wayland/WaylandLibrary.h"

#include <optional>

#include <dlfcn.h>

namespace DesktopSupport {

namespace {

template <typename Function>
bool find(void* library, const char* name, Function*& function) {
  function = reinterpret_cast<Function*>(dlsym(library, name));
  return function != nullptr;
}

std::optional<WaylandLibrary> loaded() {
  // It stays loaded: GTK may use it too.
  void* const library = dlopen("libwayland-client.so.0", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr)
    return std::nullopt;
  WaylandLibrary functions = {};
  const bool hasAll = find(library, "wl_display_connect_to_fd", functions.displayConnectToFD) &&
                      find(library, "wl_display_disconnect", functions.displayDisconnect) &&
                      find(library, "wl_display_get_fd", functions.displayGetFD) &&
                      find(library, "wl_display_prepare_read", functions.displayPrepareRead) &&
                      find(library, "wl_display_cancel_read", functions.displayCancelRead) &&
                      find(library, "wl_display_read_events", functions.displayReadEvents) &&
                      find(library, "wl_display_dispatch_pending", functions.displayDispatchPending) &&
                      find(library, "wl_display_flush", functions.displayFlush) &&
                      find(library, "wl_proxy_add_dispatcher", functions.proxyAddDispatcher) &&
                      find(library, "wl_proxy_destroy", functions.proxyDestroy) &&
                      find(library, "wl_proxy_get_version", functions.proxyGetVersion) &&
                      find(library, "wl_proxy_marshal_array_flags", functions.proxyMarshalArrayFlags);
  return hasAll ? std::optional(functions) : std::nullopt;
}

}  // namespace

const WaylandLibrary* WaylandLibrary::load() {
  static const std::optional<WaylandLibrary> library = loaded();
  return library ? &*library : nullptr;
}

}  // namespace DesktopSupport
