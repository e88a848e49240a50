#pragma once

#include <expected>
#include <string>

#include <xcb/res.h>
#include <xcb/xcb.h>
#include <xcb/xcbext.h>

namespace DesktopSupport {

/// The functions of libxcb and libxcb-res that are used, by their own names without "xcb_". They are loaded when an X
/// server is talked to for the first time, so that a launch on another desktop does not pay for them.
struct XCBLibrary {
  decltype(&xcb_connect) connect;
  decltype(&xcb_disconnect) disconnect;
  decltype(&xcb_connection_has_error) connectionHasError;
  decltype(&xcb_flush) flush;
  decltype(&xcb_get_extension_data) getExtensionData;
  decltype(&xcb_get_file_descriptor) getFileDescriptor;
  decltype(&xcb_get_property) getProperty;
  decltype(&xcb_get_setup) getSetup;
  decltype(&xcb_intern_atom) internAtom;
  decltype(&xcb_poll_for_reply) pollForReply;
  decltype(&xcb_prefetch_extension_data) prefetchExtensionData;
  decltype(&xcb_screen_next) screenNext;
  decltype(&xcb_setup_roots_iterator) setupRootsIterator;
  decltype(&xcb_res_id) resID;
  decltype(&xcb_res_client_id_value_next) resClientIDValueNext;
  decltype(&xcb_res_client_id_value_value) resClientIDValueValue;
  decltype(&xcb_res_client_id_value_value_length) resClientIDValueValueLength;
  decltype(&xcb_res_query_client_ids) resQueryClientIDs;
  decltype(&xcb_res_query_client_ids_ids_iterator) resQueryClientIDsIterator;

  /// Fails with a sentence if the libraries are not installed, or too old.
  static const std::expected<XCBLibrary, std::string>& load();
};

}  // namespace DesktopSupport
