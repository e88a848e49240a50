#include "DesktopSupport/System/UserFolders.h"

#include <cstdlib>
#include <string_view>

#include <glib.h>

#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

// The user's folder, then those that a variable lists.
std::vector<path> searched(path own, const char* variable, std::string_view usual) {
  const char* const value = std::getenv(variable);
  std::vector<path> folders = {std::move(own)};
  for (const std::string_view folder : separated(value != nullptr && *value != '\0' ? value : usual, ':'))
    folders.emplace_back(folder);
  std::erase_if(folders, [](const path& folder) { return folder.is_relative(); });
  return folders;
}

}  // namespace

path homeFolder() {
  return g_get_home_dir();
}

std::optional<path> folderNamedBy(const char* variable) {
  const char* const value = std::getenv(variable);
  const path folder = value != nullptr ? value : "";
  return folder.is_absolute() ? std::optional(folder) : std::nullopt;
}

path userConfigurationFolder() {
  return folderNamedBy("XDG_CONFIG_HOME").value_or(homeFolder() / ".config");
}

path userDataFolder() {
  return folderNamedBy("XDG_DATA_HOME").value_or(homeFolder() / ".local/share");
}

path userStateFolder() {
  return folderNamedBy("XDG_STATE_HOME").value_or(homeFolder() / ".local/state");
}

std::vector<path> configurationFolders() {
  return searched(userConfigurationFolder(), "XDG_CONFIG_DIRS", "/etc/xdg");
}

std::vector<path> dataFolders() {
  return searched(userDataFolder(), "XDG_DATA_DIRS", "/usr/local/share:/usr/share");
}

}  // namespace DesktopSupport
