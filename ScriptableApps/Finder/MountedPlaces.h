#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace ScriptableApps {

/// The places outside the file system ("sftp://example.com/home", "mtp://…") that the desktop's virtual file systems
/// have mounted in it. Nothing is mounted and nothing started.
class MountedPlaces {
 public:
  /// The virtual file systems are waited for once, for `patience` at most, and not before there is a place to ask for.
  explicit MountedPlaces(std::chrono::milliseconds patience) : patience_(patience) {}

  /// Where in the file system the place at a URI is. None where it is not mounted, or where the virtual file systems do
  /// not run or do not answer.
  [[nodiscard]] std::optional<std::string> pathOf(const std::string& uri);

 private:
  [[nodiscard]] bool canBeAsked();

  std::chrono::milliseconds patience_;
  std::optional<bool> canBeAsked_ = {};
};

}  // namespace ScriptableApps
