#include "ScriptableApps/Finder/ShownFolders.h"

#include <algorithm>
#include <map>

#include "DesktopSupport/System/GLibHandles.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::WindowID;
using std::filesystem::path;

std::string locationOf(const path& folder) {
  const DesktopSupport::CharsHandle uri(g_filename_to_uri(folder.c_str(), nullptr, nullptr));
  return uri ? uri.get() : "";
}

bool isInside(const path& inner, const path& outer) {
  return inner != outer && std::ranges::mismatch(outer, inner).in1 == outer.end();
}

}  // namespace

std::vector<path> foldersNamed(const FolderTitle& title, const std::vector<path>& watched) {
  std::vector<path> folders;
  std::ranges::copy_if(watched, std::back_inserter(folders),
                       [&](const path& folder) { return mayName(title, locationOf(folder)); });
  const auto hasOneInside = [&](const path& outer) {
    return std::ranges::any_of(watched, [&](const path& inner) { return isInside(inner, outer); });
  };
  if (folders.size() > 1)
    std::erase_if(folders, hasOneInside);
  return folders;
}

std::expected<FoundWindows, DesktopSupport::BusError> shownFolders(const FileManager& fileManager,
                                                                   const FolderSources& sources) {
  if (!fileManager.pid || fileManager.windows.empty())
    return std::unexpected(doesNotReport(fileManager));
  const ProcessFolders& watched = sources.watched.of(*fileManager.pid);
  if (!watched.areAll)
    return std::unexpected(doesNotReport(fileManager));
  std::map<std::string, std::vector<WindowID>> windowsByName;
  for (const DesktopSupport::Window& window : fileManager.windows)
    if (const FolderTitle title = folderTitle(window, fileManager); !title.location)
      windowsByName[title.name].push_back(window.id);
  FoundWindows found;
  for (const auto& [name, windows] : windowsByName) {
    const auto folders = foldersNamed({.name = name}, watched.folders);
    // Two windows with one name show the same folder, or each shows one of two.
    if (folders.size() == 1 || folders.size() == windows.size())
      for (std::size_t index = 0; index < windows.size(); ++index)
        found.windows.push_back({.locations = {locationOf(folders[index % folders.size()])}, .id = windows[index]});
  }
  return found;
}

}  // namespace ScriptableApps
