#pragma once

#include <expected>
#include <optional>
#include <string>

#include "ScriptableApps/MountedPlaces.h"

namespace ScriptableApps {

/// A folder that a file manager shows. Both texts are one line of UTF-8 each.
struct OpenFolder {
  /// As the file manager calls it, in the user's language where it doesn't go by the folder's own name.
  std::string name;
  /// From the root, with a slash at its end.
  std::string path;
};

/// The folder at a location's URI. A place on the network or on a device appears under its mount point. None where
/// there is no such folder in the file system (the trash, a search, what is not mounted). Fails with a sentence if the
/// folder's path is not one line of UTF-8.
std::expected<std::optional<OpenFolder>, std::string> openFolderAt(const std::string& uri, MountedPlaces& places);

}  // namespace ScriptableApps
