#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace DesktopSupport {

/// The parts of `list` that are not empty.
std::vector<std::string_view> separated(std::string_view list, char separator = ':');

/// The value of an environment variable; `standIn` where it is unset or empty.
std::string environmentOr(const char* variable, const std::string& standIn);

/// The folders in which configuration is looked for, the first one first: $XDG_CONFIG_HOME, then each of
/// $XDG_CONFIG_DIRS. Relative folders in these variables do not count.
std::vector<std::filesystem::path> configurationFolders();

}  // namespace DesktopSupport
