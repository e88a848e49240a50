#include "BrowserSessions/Chromium/SessionFiles.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using std::filesystem::directory_iterator;
using std::filesystem::path;

// A browser that keeps both kinds writes them at the same time.
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

}  // namespace BrowserSessions
