#include "DesktopSupport/ApplicationFolders.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#include "DesktopSupport/GLibHandles.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

std::string variable(const char* name, const std::string& standIn) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0' ? value : standIn;
}

void add(std::vector<path>& folders, const path& data) {
  const path folder = (data / "applications").lexically_normal();
  if (folder.is_absolute() && std::ranges::find(folders, folder) == folders.end())
    folders.push_back(folder);
}

void addEach(std::vector<path>& folders, std::string_view list) {
  while (!list.empty()) {
    const auto colon = std::min(list.find(':'), list.size());
    if (colon > 0)
      add(folders, list.substr(0, colon));
    list.remove_prefix(std::min(colon + 1, list.size()));
  }
}

}  // namespace

std::vector<path> applicationFolders() {
  const path home = g_get_home_dir();
  const path own = variable("XDG_DATA_HOME", home / ".local/share");
  std::vector<path> folders;
  add(folders, own);
  addEach(folders, variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share"));
  for (const path& exported : {own / "flatpak/exports/share", path("/var/lib/flatpak/exports/share")})
    add(folders, exported);
  add(folders, "/var/lib/snapd/desktop");
  return folders;
}

}  // namespace DesktopSupport
