#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace BrowserSessions {

/// The integer that the first bytes are, the lowest byte first. There must be enough of them.
template <std::integral T>
T littleEndian(std::string_view bytes) {
  std::uint64_t value = 0;
  for (std::size_t position = sizeof(T); position-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes[position]);
  return static_cast<T>(value);
}

}  // namespace BrowserSessions
