#pragma once

#include <optional>

#include "DesktopSupport/System/GLibHandles.h"
#include "ScriptableApps/Finder/FolderWay.h"

namespace ScriptableApps {

/// The windows that a file manager reports in its properties of org.freedesktop.FileManager1, a variant of type
/// "a{sv}". One that reports locations and no windows has one window that stands for all of them. `nullopt` if the file
/// manager does not report what it shows.
std::optional<FileManagerWindows> windowsIn(GVariant* properties, const FileManager& fileManager);

/// The windows that the file manager reports on the bus.
std::expected<FoundWindows, DesktopSupport::BusError> reportedFolders(const FileManager& fileManager,
                                                                      const FolderSources& sources);

}  // namespace ScriptableApps
