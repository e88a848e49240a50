#include "BrowserSessions/Firefox/LZ4Library.h"

#include "DesktopSupport/System/SharedLibrary.h"

namespace BrowserSessions {

namespace {

std::expected<LZ4Library, std::string> loaded() {
  DesktopSupport::SharedLibrary library("liblz4.so.1");
  LZ4Library functions = {};
  library.find("LZ4_decompress_safe", functions.decompressSafe);
  return library.with(functions);
}

}  // namespace

const std::expected<LZ4Library, std::string>& LZ4Library::load() {
  static const std::expected<LZ4Library, std::string> library = loaded();
  return library;
}

}  // namespace BrowserSessions
