#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace DesktopSupport {

/// The bytes of a regular file (those in /proc included). None where it cannot be read, is something else (a folder, a
/// pipe), or has more than `maximumSize` bytes.
std::optional<std::string> fileContents(const std::filesystem::path& file, std::size_t maximumSize);

}  // namespace DesktopSupport
