#include "DesktopSupport/System/SearchPath.h"

#include <algorithm>
#include <cstdlib>

#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

using std::filesystem::path;

std::vector<std::string_view> separated(std::string_view list, char separator) {
  std::vector<std::string_view> parts;
  while (!list.empty()) {
    const auto end = std::min(list.find(separator), list.size());
    if (end > 0)
      parts.push_back(list.substr(0, end));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return parts;
}

std::string environmentOr(const char* variable, const std::string& standIn) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0' ? value : standIn;
}

std::vector<path> configurationFolders() {
  std::vector<path> folders = {environmentOr("XDG_CONFIG_HOME", path(g_get_home_dir()) / ".config")};
  const std::string system = environmentOr("XDG_CONFIG_DIRS", "/etc/xdg");
  for (const std::string_view folder : separated(system))
    folders.emplace_back(folder);
  std::erase_if(folders, [](const path& folder) { return !folder.is_absolute(); });
  return folders;
}

}  // namespace DesktopSupport
