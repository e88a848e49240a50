#pragma once

#include <chrono>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace BrowserSessions {

/// The integer in the first bytes, the lowest byte first. There must be enough bytes.
template <std::integral T>
T littleEndian(std::string_view bytes) {
  std::uint64_t value = 0;
  for (std::size_t position = sizeof(T); position-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes[position]);
  return static_cast<T>(value);
}

/// The UTF-8 form of a text in UTF-16, given its bytes, the lower byte of each unit first. A NUL and a surrogate
/// without its partner become U+FFFD; half a unit at the end is ignored.
std::string utf8FromUTF16(std::string_view bytes);

using FileTime = std::chrono::sys_time<std::chrono::nanoseconds>;

/// The time at which a file was last written, or a symbolic link was made; `nullopt` if there is no such file. Times on
/// one file system come from one clock, which advances in steps of some milliseconds.
std::optional<FileTime> fileTime(const std::filesystem::path& file);

}  // namespace BrowserSessions
