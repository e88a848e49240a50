#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace DesktopSupport {

/// The bytes of a regular file, including one in /proc. `nullopt` if it cannot be read, is not regular (a folder, a
/// pipe), or has more than `maximumSize` bytes. Never waits for the writer of a pipe.
std::optional<std::string> fileContents(const std::filesystem::path& file, std::size_t maximumSize);

}  // namespace DesktopSupport
