#include "BrowserSessions/Chromium/SessionFiles.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <system_error>

#include "BrowserSessions/BrowserFiles.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using std::filesystem::directory_iterator;
using std::filesystem::path;

// A browser that keeps both kinds of logs writes them at the same time.
constexpr std::chrono::minutes tolerance(5);

std::optional<std::int64_t> timeInName(std::string_view name, std::string_view prefix) {
  if (!name.starts_with(prefix))
    return std::nullopt;
  const auto time = DesktopSupport::parseNumber<std::int64_t>(name.substr(prefix.size()));
  return time >= 0 ? time : std::nullopt;
}

bool isWrittenLater(const path& file, const path& than) {
  std::error_code error;
  const auto time = std::filesystem::last_write_time(file, error);
  const auto other = error ? time : std::filesystem::last_write_time(than, error);
  return !error && time - other >= tolerance;
}

// The time of the lock, in the unit of `SessionFile::begun`.
std::optional<std::int64_t> timeOfLock(const path& userData) {
  constexpr std::chrono::seconds from1601To1970(11'644'473'600);
  const auto time = fileTime(userData / "SingletonLock");
  if (!time)
    return std::nullopt;
  const auto since1970 = std::chrono::floor<std::chrono::microseconds>(time->time_since_epoch());
  return (since1970 + from1601To1970).count();
}

}  // namespace

std::vector<SessionFile> sessionFiles(const path& folder, std::string_view prefix) {
  std::vector<SessionFile> files;
  std::error_code error;
  for (directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    if (const auto begun = timeInName(entry->path().filename().native(), prefix))
      files.push_back({entry->path(), *begun});
  std::ranges::sort(files, std::ranges::greater(), &SessionFile::begun);
  return files;
}

bool areStale(const std::vector<SessionFile>& readable, const std::vector<SessionFile>& encrypted) {
  if (encrypted.empty())
    return false;
  if (readable.empty())
    return true;
  const SessionFile& newest = encrypted.front();
  const bool isBegunLater = newest.begun - readable.front().begun >= std::chrono::microseconds(tolerance).count();
  return isBegunLater && isWrittenLater(newest.path, readable.front().path);
}

ChromiumRun::ChromiumRun(const path& userData, pid_t process, const path& processes)
    : begun_(timeOfLock(userData)), openFiles_(processes / std::to_string(process) / "fd") {}

bool ChromiumRun::mayHaveWritten(const SessionFile& log) const {
  return !begun_ || log.begun >= *begun_ || hasOpen(log.path);
}

bool ChromiumRun::hasOpen(const path& file) const {
  std::error_code error;
  using Files = std::filesystem::directory_iterator;
  for (Files entry(openFiles_, error), end; !error && entry != end; entry.increment(error))
    if (std::error_code ignored; std::filesystem::equivalent(entry->path(), file, ignored))
      return true;
  return false;
}

}  // namespace BrowserSessions
