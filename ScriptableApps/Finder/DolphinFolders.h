#pragma once

#include "ScriptableApps/Finder/FolderWay.h"

namespace ScriptableApps {

/// The windows of Dolphin. It answers whether a location is open in one of a window's tabs and views, and does not list
/// them. So it is asked about those in its windows' titles and about the folders that it watches.
std::expected<FoundWindows, DesktopSupport::BusError> dolphinFolders(const FileManager& fileManager,
                                                                     const FolderSources& sources);

}  // namespace ScriptableApps
