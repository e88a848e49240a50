#pragma once

#include <expected>
#include <optional>
#include <string>
#include <vector>

#include "ScriptableApps/Finder/MountedPlaces.h"

namespace ScriptableApps {

/// A folder that a file manager shows. Both texts are one line of UTF-8 each.
struct OpenFolder {
  /// As the file manager calls it, in the user's language where it doesn't go by the folder's own name.
  std::string name;
  /// From the root, with a slash at its end.
  std::string path;
};

/// A folder, or a sentence that says why it is left out.
using FolderOrProblem = std::expected<OpenFolder, std::string>;

/// The path of a location in the file system, whatever is there; none if it isn't in the file system.
std::optional<std::string> pathAt(const std::string& uri, MountedPlaces& places);

/// The folder with this path, if there is one. Fails if the path is not one line of UTF-8.
FolderOrProblem folderWithPath(const std::string& path);

/// The folders at these locations' URIs, in their order. A place on the network or on a device appears under its mount
/// point. A location is left out in silence if there is no such folder in the file system (the trash, a search, what is
/// not mounted), and with a sentence if the folder's path is not one line of UTF-8. Waits a few seconds at most for
/// file systems that don't answer.
std::vector<FolderOrProblem> openFoldersAt(const std::vector<std::string>& uris, MountedPlaces& places);

}  // namespace ScriptableApps
