#include "DesktopSupport/Windows/X11/XCBLibrary.h"

#include <optional>

#include <dlfcn.h>

namespace DesktopSupport {

namespace {

template <typename Symbol>
bool find(void* library, const char* name, Symbol*& symbol) {
  symbol = reinterpret_cast<Symbol*>(dlsym(library, name));
  return symbol != nullptr;
}

std::optional<XCBLibrary> loaded() {
  // It brings libxcb. Both stay loaded: GTK may use them too.
  void* const library = dlopen("libxcb-res.so.0", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr)
    return std::nullopt;
  XCBLibrary found = {};
  const bool hasAll =
      find(library, "xcb_connect", found.connect) && find(library, "xcb_disconnect", found.disconnect) &&
      find(library, "xcb_connection_has_error", found.connectionHasError) && find(library, "xcb_flush", found.flush) &&
      find(library, "xcb_get_extension_data", found.getExtensionData) &&
      find(library, "xcb_get_file_descriptor", found.getFileDescriptor) &&
      find(library, "xcb_get_property", found.getProperty) &&
      find(library, "xcb_get_property_value", found.getPropertyValue) &&
      find(library, "xcb_get_setup", found.getSetup) && find(library, "xcb_intern_atom", found.internAtom) &&
      find(library, "xcb_poll_for_reply", found.pollForReply) &&
      find(library, "xcb_prefetch_extension_data", found.prefetchExtensionData) &&
      find(library, "xcb_screen_next", found.screenNext) &&
      find(library, "xcb_setup_roots_iterator", found.setupRootsIterator) && find(library, "xcb_res_id", found.resID) &&
      find(library, "xcb_res_client_id_value_next", found.resClientIDValueNext) &&
      find(library, "xcb_res_client_id_value_value", found.resClientIDValueValue) &&
      find(library, "xcb_res_client_id_value_value_length", found.resClientIDValueValueLength) &&
      find(library, "xcb_res_query_client_ids", found.resQueryClientIDs) &&
      find(library, "xcb_res_query_client_ids_ids_iterator", found.resQueryClientIDsIterator);
  return hasAll ? std::optional(found) : std::nullopt;
}

}  // namespace

const XCBLibrary* XCBLibrary::load() {
  static const std::optional<XCBLibrary> library = loaded();
  return library ? &*library : nullptr;
}

}  // namespace DesktopSupport
