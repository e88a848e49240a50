#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <lz4.h>

namespace BrowserSessions::Testing {

/// The bytes of a file that starts like those that Firefox compresses, with any size and block.
inline std::string mozillaLZ4File(std::size_t size, std::string_view block) {
  std::string file("mozLz40\0", 8);
  for (int shift = 0; shift < 32; shift += 8)
    file += static_cast<char>(size >> shift & 0xFF);
  return file.append(block);
}

/// The bytes of a file with these contents, compressed as by Firefox.
inline std::string mozillaLZ4File(std::string_view contents) {
  const int size = static_cast<int>(contents.size());
  std::string block(static_cast<std::size_t>(LZ4_compressBound(size)), '\0');
  const int written = LZ4_compress_default(contents.data(), block.data(), size, static_cast<int>(block.size()));
  block.resize(static_cast<std::size_t>(written));
  return mozillaLZ4File(contents.size(), block);
}

}  // namespace BrowserSessions::Testing
