#pragma once

#include <memory>

#include <glib.h>

namespace DesktopSupport {

/// Deleter that calls the C function `release`.
template <auto release>
struct ReleasedBy {
  template <typename T>
  void operator()(T* pointer) const {
    release(pointer);
  }
};

/// Owners of GLib's types. Each gives up one reference, or frees the memory.
using VariantHandle = std::unique_ptr<GVariant, ReleasedBy<g_variant_unref>>;
using ErrorHandle = std::unique_ptr<GError, ReleasedBy<g_error_free>>;
using CharsHandle = std::unique_ptr<gchar, ReleasedBy<g_free>>;
using StringsHandle = std::unique_ptr<gchar*, ReleasedBy<g_strfreev>>;
using MainContextHandle = std::unique_ptr<GMainContext, ReleasedBy<g_main_context_unref>>;
using MainLoopHandle = std::unique_ptr<GMainLoop, ReleasedBy<g_main_loop_unref>>;
using SourceHandle = std::unique_ptr<GSource, ReleasedBy<g_source_unref>>;
using KeyFileHandle = std::unique_ptr<GKeyFile, ReleasedBy<g_key_file_unref>>;
using MarkupParserHandle = std::unique_ptr<GMarkupParseContext, ReleasedBy<g_markup_parse_context_unref>>;
using ChecksumHandle = std::unique_ptr<GChecksum, ReleasedBy<g_checksum_free>>;
using BytesHandle = std::unique_ptr<GBytes, ReleasedBy<g_bytes_unref>>;
/// Owns the list, not its elements.
using ListHandle = std::unique_ptr<GList, ReleasedBy<g_list_free>>;

/// Lets a C function fill a handle through its `T**` parameter: `f(…, Out(error))`. The handle gets the pointer at the
/// end of the full expression.
template <typename Handle>
class Out {
 public:
  explicit Out(Handle& handle) : handle_(handle) {}
  Out(const Out&) = delete;
  Out& operator=(const Out&) = delete;
  ~Out() { handle_.reset(pointer_); }

  operator typename Handle::pointer *() { return &pointer_; }

 private:
  Handle& handle_;
  typename Handle::pointer pointer_ = nullptr;
};

/// Takes over a variant that has just been made and is still floating.
inline VariantHandle owned(GVariant* variant) {
  return VariantHandle(g_variant_ref_sink(variant));
}

}  // namespace DesktopSupport
