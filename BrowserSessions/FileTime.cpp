#include "BrowserSessions/FileTime.h"

#include <sys/stat.h>

namespace BrowserSessions {

std::optional<FileTime> fileTime(const std::filesystem::path& file) {
  struct stat facts = {};
  if (lstat(file.c_str(), &facts) != 0)
    return std::nullopt;
  return FileTime(std::chrono::seconds(facts.st_mtim.tv_sec) + std::chrono::nanoseconds(facts.st_mtim.tv_nsec));
}

}  // namespace BrowserSessions
