#pragma once

#include <expected>
#include <string>

#include <lz4.h>

namespace BrowserSessions {

/// The function of LZ4 that is used. The library is loaded when a compressed file is read for the first time.
struct LZ4Library {
  decltype(&LZ4_decompress_safe) decompressSafe;

  /// Fails with a sentence if the library is not installed.
  static const std::expected<LZ4Library, std::string>& load();
};

}  // namespace BrowserSessions
