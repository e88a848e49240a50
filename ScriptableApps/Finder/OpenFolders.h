#pragma once

#include <chrono>
#include <expected>
#include <optional>
#include <string>
#include <vector>

namespace ScriptableApps {

/// A folder that a file manager shows. Each text is one line of UTF-8.
struct OpenFolder {
  /// As the file manager calls it: the folder's own name, or a name in the user's language, such as "Home".
  std::string name;
  /// Absolute, with a slash at the end.
  std::string path;
};

/// A folder, or a sentence that says why it is left out.
using FolderOrProblem = std::expected<OpenFolder, std::string>;

/// Where the desktop's virtual file systems have mounted places such as "sftp://example.com/home" or "mtp://…". Mounts
/// nothing and starts nothing.
class MountedPlaces {
 public:
  /// Waits for the virtual file systems once, when the first place is asked for, and for `patience` at most.
  explicit MountedPlaces(std::chrono::milliseconds patience) : patience_(patience) {}

  /// The path under which the place is mounted. `nullopt` if it is not mounted, or if the virtual file systems are not
  /// running or do not answer.
  [[nodiscard]] std::optional<std::string> pathOf(const std::string& uri);

 private:
  [[nodiscard]] bool canBeAsked();

  std::chrono::milliseconds patience_;
  std::optional<bool> canBeAsked_ = {};
};

/// Whether the path is that of the user's home folder.
bool isHomeFolder(const std::string& path);

/// Whether a file manager shows the user's home folder under this name, in the user's language.
bool isNameOfHomeFolder(const std::string& name);

/// The path of a location in the file system, whether or not something is there. `nullopt` for other locations.
std::optional<std::string> pathAt(const std::string& uri, MountedPlaces& places);

/// The folder with this path, which must exist. Fails if the path is not one line of UTF-8.
FolderOrProblem folderWithPath(const std::string& path);

/// The folders at the locations that these URIs name, in the same order. A place on the network or on a device appears
/// under its mount point. A location that is no folder in the file system (the trash, a search, what is not mounted) is
/// skipped; a folder whose path is not one line of UTF-8 is a problem. Waits a few seconds at most for file systems
/// that don't answer.
std::vector<FolderOrProblem> openFoldersAt(const std::vector<std::string>& uris, MountedPlaces& places);

}  // namespace ScriptableApps
