#include "BrowserSessions/ProfileLock.h"

#include <fcntl.h>

#include "DesktopSupport/FileDescriptor.h"

namespace BrowserSessions {

bool isLockedProfile(const std::filesystem::path& profile) {
  const std::filesystem::path file = profile / ".parentlock";
  const DesktopSupport::FileDescriptor descriptor(open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
  struct flock lock = {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  return descriptor.isOpen() && fcntl(descriptor.number(), F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
}

}  // namespace BrowserSessions
