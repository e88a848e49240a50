#include "DesktopSupport/Windows/X11/XCBLibrary.h"

#include "DesktopSupport/System/SharedLibrary.h"

namespace DesktopSupport {

namespace {

std::expected<XCBLibrary, std::string> loaded() {
  // It brings libxcb.
  SharedLibrary library("libxcb-res.so.0");
  XCBLibrary functions = {};
  library.find("xcb_connect", functions.connect);
  library.find("xcb_disconnect", functions.disconnect);
  library.find("xcb_connection_has_error", functions.connectionHasError);
  library.find("xcb_flush", functions.flush);
  library.find("xcb_get_extension_data", functions.getExtensionData);
  library.find("xcb_get_file_descriptor", functions.getFileDescriptor);
  library.find("xcb_get_property", functions.getProperty);
  library.find("xcb_get_setup", functions.getSetup);
  library.find("xcb_intern_atom", functions.internAtom);
  library.find("xcb_poll_for_reply", functions.pollForReply);
  library.find("xcb_prefetch_extension_data", functions.prefetchExtensionData);
  library.find("xcb_screen_next", functions.screenNext);
  library.find("xcb_setup_roots_iterator", functions.setupRootsIterator);
  library.find("xcb_res_id", functions.resID);
  library.find("xcb_res_client_id_value_next", functions.resClientIDValueNext);
  library.find("xcb_res_client_id_value_value", functions.resClientIDValueValue);
  library.find("xcb_res_client_id_value_value_length", functions.resClientIDValueValueLength);
  library.find("xcb_res_query_client_ids", functions.resQueryClientIDs);
  library.find("xcb_res_query_client_ids_ids_iterator", functions.resQueryClientIDsIterator);
  return library.with(functions);
}

}  // namespace

const std::expected<XCBLibrary, std::string>& XCBLibrary::load() {
  static const std::expected<XCBLibrary, std::string> library = loaded();
  return library;
}

}  // namespace DesktopSupport
