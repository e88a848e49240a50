#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

#include <sys/types.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Tests/Support/Patience.h"

namespace TestSupport {

/// A network mount whose server has gone silent: whoever asks for something in it waits, deaf to all signals but
/// SIGKILL. At the end of its scope, or of this process, those who wait get ECONNABORTED and the mount is removed.
///
/// It is a FUSE file system, mounted by fusermount3, that answers the kernel's greeting and nothing after that.
class DeadMount {
 public:
  /// Mounts it at the folder `path`. Throws if it cannot be mounted.
  explicit DeadMount(std::filesystem::path path);
  DeadMount(const DeadMount&) = delete;
  DeadMount& operator=(const DeadMount&) = delete;
  ~DeadMount();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Waits until somebody has asked for something in it. False if nobody does within `time`.
  [[nodiscard]] bool awaitRequest(std::chrono::milliseconds time = patience) const;

 private:
  void mount();
  void unmount();

  std::filesystem::path path_;
  /// fusermount3, which unmounts when the other end of its socket is closed, by whatever end of this process.
  pid_t mounter_ = -1;
  std::optional<DesktopSupport::FileDescriptor> mounterSocket_;
  /// Where the kernel puts its requests.
  std::optional<DesktopSupport::FileDescriptor> requests_;
};

}  // namespace TestSupport
