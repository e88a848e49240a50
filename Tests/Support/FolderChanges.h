#pragma once

#include <filesystem>
#include <functional>

#include "DesktopSupport/System/FileDescriptor.h"

namespace TestSupport {

/// Waits for what programs write to files.
class FolderChanges {
 public:
  /// Watches the files in this folder and its subfolders, and makes it if it is missing. Throws if that fails.
  explicit FolderChanges(std::filesystem::path folder);

  /// Waits until `condition` holds. Checks it when a file is made, written or deleted, and when `other`, if given, can
  /// be read; `condition` must then read it. Returns false if it takes too long.
  [[nodiscard]] bool waitUntil(const std::function<bool()>& condition, int other = noDescriptor) const;

 private:
  static constexpr int noDescriptor = -1;

  [[nodiscard]] bool watch(const std::filesystem::path& folder) const;
  void watchFoldersInside() const;

  std::filesystem::path folder_;
  DesktopSupport::FileDescriptor events_;
};

}  // namespace TestSupport
