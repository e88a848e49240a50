#include "DesktopSupport/DesktopEntries/ApplicationFolders.h"

#include <algorithm>

#include "DesktopSupport/System/UserFolders.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

void add(std::vector<path>& folders, const path& data) {
  const path folder = (data / "applications").lexically_normal();
  if (std::ranges::find(folders, folder) == folders.end())
    folders.push_back(folder);
}

}  // namespace

std::vector<path> applicationFolders() {
  std::vector<path> folders;
  for (const path& data : dataFolders())
    add(folders, data);
  for (const path& exported : {userDataFolder() / "flatpak/exports/share", path("/var/lib/flatpak/exports/share")})
    add(folders, exported);
  add(folders, "/var/lib/snapd/desktop");
  return folders;
}

}  // namespace DesktopSupport
