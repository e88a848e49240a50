#include "ScriptableApps/Finder/ShownFolders.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>

#include "DesktopSupport/System/GLibHandles.h"
#include "ScriptableApps/Finder/OpenFolders.h"
#include "ScriptableApps/Finder/RemotePlaces.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::WindowID;
using std::filesystem::path;

std::string locationOf(const path& folder) {
  const DesktopSupport::CharsHandle uri(g_filename_to_uri(folder.c_str(), nullptr, nullptr));
  return uri ? uri.get() : "";
}

bool hasOneInside(const path& outer, const std::vector<path>& watched) {
  return std::ranges::any_of(watched, [&](const path& inner) {
    return inner != outer && std::ranges::mismatch(outer, inner).in1 == outer.end();
  });
}

// Whether the folder is watched by every file manager, or whether it may be watched for a folder inside it alone.
bool mayBeWatchedUnseen(const path& folder, const std::vector<path>& watched) {
  return isHomeFolder(folder) || hasOneInside(folder, watched);
}

std::map<std::string, std::vector<WindowID>> windowsByName(const FileManager& fileManager) {
  std::map<std::string, std::vector<WindowID>> windows;
  for (const DesktopSupport::Window& window : fileManager.windows)
    if (const FolderTitle title = folderTitle(window, fileManager); !title.location)
      windows[title.name].push_back(window.id);
  return windows;
}

}  // namespace

std::vector<path> foldersNamed(const FolderTitle& title, const std::vector<path>& watched) {
  std::vector<path> folders;
  std::ranges::copy_if(watched, std::back_inserter(folders),
                       [&](const path& folder) { return mayName(title, locationOf(folder)); });
  if (folders.size() > 1)
    std::erase_if(folders, [&](const path& folder) { return hasOneInside(folder, watched); });
  return folders;
}

std::expected<FoundWindows, DesktopSupport::BusError> shownFolders(const FileManager& fileManager,
                                                                   const FolderSources& sources) {
  if (!fileManager.pid || fileManager.windows.empty())
    return std::unexpected(doesNotReport(fileManager));
  const ProcessFolders& watched = sources.watched.of(*fileManager.pid);
  if (!watched.areAll)
    return std::unexpected(doesNotReport(fileManager));
  std::optional<bool> isRemotePossible;
  const auto mayBeElsewhere = [&](const path& folder) {
    if (!mayBeWatchedUnseen(folder, watched.folders))
      return false;
    if (!isRemotePossible)
      isRemotePossible = mayShowRemotePlaces(sources.bus, sources.patience);
    return *isRemotePossible;
  };
  FoundWindows found;
  for (const auto& [name, windows] : windowsByName(fileManager)) {
    const auto folders = foldersNamed({.name = name}, watched.folders);
    // Windows with one name show the same folder, or each shows another one.
    if ((folders.size() != 1 && folders.size() != windows.size()) || std::ranges::any_of(folders, mayBeElsewhere))
      continue;
    for (std::size_t index = 0; index < windows.size(); ++index)
      found.windows.push_back({.locations = {locationOf(folders[index % folders.size()])}, .id = windows[index]});
  }
  return found;
}

}  // namespace ScriptableApps
