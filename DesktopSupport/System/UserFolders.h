#pragma once

#include <filesystem>
#include <optional>
#include <vector>

namespace DesktopSupport {

/// The user's home folder.
std::filesystem::path homeFolder();

/// The folder that an environment variable names. `nullopt` if the variable is unset or empty, or names a relative
/// folder: the XDG base directories are absolute, and a relative one is ignored.
std::optional<std::filesystem::path> folderNamedBy(const char* variable);

/// The user's own folders: $XDG_CONFIG_HOME, $XDG_DATA_HOME and $XDG_STATE_HOME, or their defaults in the home folder.
std::filesystem::path userConfigurationFolder();
std::filesystem::path userDataFolder();
std::filesystem::path userStateFolder();

/// The folders that are searched for configuration, the preferred one first: the user's, then each of $XDG_CONFIG_DIRS.
std::vector<std::filesystem::path> configurationFolders();

/// The folders that are searched for data, the preferred one first: the user's, then each of $XDG_DATA_DIRS.
std::vector<std::filesystem::path> dataFolders();

}  // namespace DesktopSupport
