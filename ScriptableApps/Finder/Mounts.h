#pragma once

#include <filesystem>
#include <map>

#include <sys/types.h>

namespace ScriptableApps {

/// Which file systems are mounted where, as the kernel lists them. Touches none of them.
class Mounts {
 public:
  explicit Mounts(const std::filesystem::path& list = "/proc/self/mountinfo");

  /// The device of the file system that is visible at each mount point.
  [[nodiscard]] const std::map<std::filesystem::path, dev_t>& devices() const { return devices_; }

  /// The device of the file system that an absolute path is in; 0 if it is unknown.
  [[nodiscard]] dev_t deviceOf(std::filesystem::path path) const;

 private:
  std::map<std::filesystem::path, dev_t> devices_;
};

}  // namespace ScriptableApps
