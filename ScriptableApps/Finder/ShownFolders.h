#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "ScriptableApps/Finder/FolderWay.h"
#include "ScriptableApps/Finder/WindowTitles.h"

namespace ScriptableApps {

/// Those of the watched folders that a window with this title can show.
///
/// A program also watches the folders above the one that it shows, if it shows their names. So a folder with another
/// watched one inside it only counts if no other has the name.
std::vector<std::filesystem::path> foldersNamed(const FolderTitle& title,
                                                const std::vector<std::filesystem::path>& watched);

/// The windows whose titles name a folder that the file manager watches, as it does with those that it shows. A window
/// counts only if all folders that the file manager watches are known, and no other of them has the same name: a folder
/// elsewhere with the name is then not the one.
std::expected<FoundWindows, DesktopSupport::BusError> shownFolders(const FileManager& fileManager,
                                                                   const FolderSources& sources);

}  // namespace ScriptableApps
