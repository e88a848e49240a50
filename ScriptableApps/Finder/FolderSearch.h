#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace ScriptableApps {

/// By what the kernel tells a file or folder from all others.
struct FileMark {
  /// The device of its file system. That of `stat` may be another one, since some file systems have several.
  dev_t device = 0;
  ino_t inode = 0;
  /// The file handle, its type and its bytes as hexadecimal digits: "1:7a42a700". Empty if the file system has none.
  std::string handle = {};

  auto operator<=>(const FileMark&) const = default;
};

/// Folders in and near which a search begins.
struct SearchPlaces {
  std::vector<std::filesystem::path> likely = {};
  /// Those that it looks into later.
  std::vector<std::filesystem::path> lessLikely = {};
};

/// For each mark the path of its file or folder, or `nullopt` if it is not found within `limit`. Looks at the folders
/// given and at those above them, then level by level below them and below the mount points of the marks' file systems,
/// with hidden folders last. Touches no other file system, and gives up on those if they do not answer for
/// `DesktopSupport::fileSystemTime` after that.
std::vector<std::optional<std::filesystem::path>> pathsWith(const std::vector<FileMark>& marks,
                                                            const SearchPlaces& places,
                                                            std::chrono::milliseconds limit);

}  // namespace ScriptableApps
