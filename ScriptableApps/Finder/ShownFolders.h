#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "ScriptableApps/Finder/FolderWay.h"
#include "ScriptableApps/Finder/WindowTitles.h"

namespace ScriptableApps {

/// Those of the watched folders that a window with this title can show.
///
/// Some programs also watch the folders above the one that they show. So of several with the name, one that has a
/// watched folder inside it does not count.
std::vector<std::filesystem::path> foldersNamed(const FolderTitle& title,
                                                const std::vector<std::filesystem::path>& watched);

/// The windows whose titles name a folder that the file manager watches, as it does with those that it shows. The
/// folder is certain if everything that the file manager watches is known and nothing else there has the name. A place
/// on the network with the name would not be watched; it matters if the folder may be watched without being shown.
std::expected<FoundWindows, DesktopSupport::BusError> shownFolders(const FileManager& fileManager,
                                                                   const FolderSources& sources);

}  // namespace ScriptableApps
