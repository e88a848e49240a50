#pragma once

#include <chrono>
#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <vector>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/Windows/Window.h"
#include "ScriptableApps/Finder/RunningFileManagers.h"
#include "ScriptableApps/Finder/WatchedFolders.h"

namespace ScriptableApps {

/// A window of a file manager with the location of each of its tabs, as URIs, as far as they are known.
struct FileManagerWindow {
  /// Its name on the bus, if the file manager tells.
  DesktopSupport::GTKWindowName name = {};
  std::vector<std::string> locations = {};
  /// Which window on the screen it is, if that is known.
  std::optional<DesktopSupport::WindowID> id = {};
};
using FileManagerWindows = std::vector<FileManagerWindow>;

/// What one way tells about a file manager.
struct FoundWindows {
  FileManagerWindows windows = {};
  /// Whether no other way can tell more.
  bool isFinal = false;
  /// If so, how many windows there are whose folders remain unknown.
  std::size_t unknown = 0;
};

/// What a way may ask.
struct FolderSources {
  /// Null if there is none.
  const DesktopSupport::SessionBus* bus;
  /// How long to wait for a program.
  std::chrono::milliseconds patience;
  WatchedFolders& watched;
};

/// A way to learn which folders a file manager shows. Its `windows` are those of which no way before knew the folder.
/// Fails with `notSupported` if the way does not exist for this file manager, and otherwise if it does not answer.
using FolderWay = std::expected<FoundWindows, DesktopSupport::BusError> (*)(const FileManager& fileManager,
                                                                            const FolderSources& sources);

/// The failure of a way that does not exist for this file manager.
DesktopSupport::BusError doesNotReport(const FileManager& fileManager);

}  // namespace ScriptableApps
