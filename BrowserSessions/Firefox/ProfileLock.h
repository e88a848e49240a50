#pragma once

#include <filesystem>
#include <optional>

#include <sys/types.h>

namespace BrowserSessions {

/// The lock that a running Firefox has on its profile.
struct ProfileLock {
  /// The process that has it; none where that is outside of the sandbox or the computer that this program runs in.
  std::optional<pid_t> holder;

  bool operator==(const ProfileLock&) const = default;
};

/// The lock that another process has on the Firefox profile in this folder, none where nobody has locked it. A Firefox
/// holds the lock for as long as it runs, and it goes with the process however that ends; the lock's file says nothing,
/// as it stays. Waits for nothing. None where there is no such file, or it cannot be opened.
std::optional<ProfileLock> profileLock(const std::filesystem::path& profile);

}  // namespace BrowserSessions
