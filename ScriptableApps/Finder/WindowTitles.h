#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ScriptableApps/Finder/FolderWay.h"

namespace ScriptableApps {

/// What a window's title says about the folder that the window shows.
struct FolderTitle {
  /// What the window calls the folder: its name, or a name in the user's language, such as "Home". Empty if the title
  /// has only its location.
  std::string name = {};
  /// The folder's location as a URI, if the title has all of it.
  std::optional<std::string> location = {};

  bool operator==(const FolderTitle&) const = default;
};

/// Reads a title that ends with `end`, or one without it. A folder's name has no slash, so a text with one is a path.
FolderTitle folderTitle(std::string_view title, std::string_view end);

/// What the window's title says.
FolderTitle folderTitle(const DesktopSupport::Window& window, const FileManager& fileManager);

/// Whether the title may be that of a window that shows the folder at this location.
bool mayName(const FolderTitle& title, const std::string& location);

/// The windows whose titles have the whole location. The folder may have been removed since.
std::expected<FoundWindows, DesktopSupport::BusError> foldersInTitles(const FileManager& fileManager,
                                                                      const FolderSources& sources);

}  // namespace ScriptableApps
