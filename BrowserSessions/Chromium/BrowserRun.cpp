#include "BrowserSessions/Chromium/BrowserRun.h"

#include <chrono>
#include <string>
#include <system_error>

#include "BrowserSessions/FileTime.h"

namespace BrowserSessions {

namespace {

using std::filesystem::path;

std::optional<std::int64_t> timeOfLock(const path& userData) {
  constexpr std::chrono::seconds from1601To1970(11'644'473'600);
  const auto time = fileTime(userData / "SingletonLock");
  if (!time)
    return std::nullopt;
  const auto since1970 = std::chrono::floor<std::chrono::microseconds>(time->time_since_epoch());
  return (since1970 + from1601To1970).count();
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
