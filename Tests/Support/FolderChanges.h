#pragma once

#include <filesystem>
#include <functional>

#include "DesktopSupport/System/FileDescriptor.h"

namespace TestSupport {

/// Has a test wait for what programs write.
class FolderChanges {
 public:
  /// Watches the files in this folder and in those inside it; it is made where there is none. Throws where that fails.
  explicit FolderChanges(std::filesystem::path folder);

  /// Waits until `condition` holds; looks again whenever one of the files is there anew, was written or is gone.
  /// It looks again as well whenever there is something to read from `other`, if any, which `condition` has to take
  /// away. False where that takes so long that something must be broken.
  [[nodiscard]] bool waitUntil(const std::function<bool()>& condition, int other = noDescriptor) const;

 private:
  static constexpr int noDescriptor = -1;

  [[nodiscard]] bool watch(const std::filesystem::path& folder) const;
  void watchFoldersInside() const;

  std::filesystem::path folder_;
  DesktopSupport::FileDescriptor events_;
};

}  // namespace TestSupport
