#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

#include <sys/types.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Tests/Support/Patience.h"

namespace TestSupport {

/// A network mount whose server does not answer. A process that uses a file in it waits and can only be stopped with
/// SIGKILL. When this object is destroyed or this process ends, those that wait get ECONNABORTED and the mount is
/// removed.
///
/// It is a FUSE file system, mounted by fusermount3, that answers the kernel's first message and none after that.
class DeadMount {
 public:
  /// Mounts it at the folder `path`. Throws if it cannot be mounted.
  explicit DeadMount(std::filesystem::path path);
  DeadMount(const DeadMount&) = delete;
  DeadMount& operator=(const DeadMount&) = delete;
  ~DeadMount();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  /// Waits until a process uses a file in it. Returns false if none does within `time`.
  [[nodiscard]] bool awaitRequest(std::chrono::milliseconds time = patience) const;

 private:
  void mount();
  void unmount();

  std::filesystem::path path_;
  /// fusermount3 unmounts when the other end of its socket is closed, however this process ends.
  pid_t mounter_ = -1;
  std::optional<DesktopSupport::FileDescriptor> mounterSocket_;
  /// The kernel's requests.
  std::optional<DesktopSupport::FileDescriptor> requests_;
};

}  // namespace TestSupport
