#include "BrowserSessions/BrowserRun.h"

#include <string>
#include <system_error>

#include <sys/stat.h>

namespace BrowserSessions {

namespace {

using std::filesystem::path;

std::optional<std::int64_t> timeOfLock(const path& userData) {
  constexpr std::int64_t from1601To1970 = 11'644'473'600;
  constexpr std::int64_t microseconds = 1'000'000;
  struct stat facts = {};
  if (lstat((userData / "SingletonLock").c_str(), &facts) != 0)
    return std::nullopt;
  return (facts.st_mtim.tv_sec + from1601To1970) * microseconds + facts.st_mtim.tv_nsec / 1000;
}

}  // namespace

BrowserRun::BrowserRun(const path& userData, pid_t process, const path& processes)
    : begun_(timeOfLock(userData)), openFiles_(processes / std::to_string(process) / "fd") {}

bool BrowserRun::mayHaveWritten(const SessionFile& log) const {
  return !begun_ || log.begun >= *begun_ || hasOpen(log.path);
}

bool BrowserRun::hasOpen(const path& file) const {
  std::error_code error;
  using Files = std::filesystem::directory_iterator;
  for (Files entry(openFiles_, error), end; !error && entry != end; entry.increment(error))
    if (std::error_code ignored; std::filesystem::equivalent(entry->path(), file, ignored))
      return true;
  return false;
}

}  // namespace BrowserSessions
