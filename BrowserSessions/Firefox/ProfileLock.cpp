#include "BrowserSessions/Firefox/ProfileLock.h"

#include <fcntl.h>

#include "DesktopSupport/System/FileDescriptor.h"

namespace BrowserSessions {

std::optional<ProfileLock> profileLock(const std::filesystem::path& profile) {
  const std::filesystem::path file = profile / ".parentlock";
  const DesktopSupport::FileDescriptor descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  struct flock lock = {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  if (!descriptor.isOpen() || fcntl(descriptor.number(), F_GETLK, &lock) != 0 || lock.l_type == F_UNLCK)
    return std::nullopt;
  // 0 is a process in no namespace of this one, a negative number one on another computer.
  return ProfileLock{.holder = lock.l_pid > 0 ? std::optional(lock.l_pid) : std::nullopt};
}

}  // namespace BrowserSessions
