#include "DesktopSupport/DesktopEntries/ApplicationFolders.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/SearchPath.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

void add(std::vector<path>& folders, const path& data) {
  const path folder = (data / "applications").lexically_normal();
  if (folder.is_absolute() && std::ranges::find(folders, folder) == folders.end())
    folders.push_back(folder);
}

}  // namespace

std::vector<path> applicationFolders() {
  const path home = g_get_home_dir();
  const path own = environmentOr("XDG_DATA_HOME", home / ".local/share");
  const std::string system = environmentOr("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
  std::vector<path> folders;
  add(folders, own);
  for (const std::string_view data : separated(system))
    add(folders, data);
  for (const path& exported : {own / "flatpak/exports/share", path("/var/lib/flatpak/exports/share")})
    add(folders, exported);
  add(folders, "/var/lib/snapd/desktop");
  return folders;
}

}  // namespace DesktopSupport
