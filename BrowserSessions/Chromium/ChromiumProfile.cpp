#include "BrowserSessions/Chromium/ChromiumProfile.h"

#include <cstddef>
#include <optional>

#include "BrowserSessions/Chromium/ChromiumSession.h"
#include "BrowserSessions/Chromium/SessionFiles.h"
#include "BrowserSessions/Chromium/SessionLog.h"
#include "DesktopSupport/System/FileContents.h"

namespace BrowserSessions {

namespace {

using std::filesystem::path;

using Session = std::expected<LoggedSession, std::string>;

// Some ten thousand tabs, each with its history.
constexpr std::size_t maximumLogSize = 128 << 20;

// The browser begins a new log and removes the oldest one every few hundred changes: hardly during two readings.
constexpr int attempts = 4;

// What the log tells; none where the browser is still writing down what was open when it began the log.
std::expected<std::optional<LoggedSession>, std::string> sessionIn(const path& file) {
  const auto bytes = DesktopSupport::fileContents(file, maximumLogSize);
  if (!bytes)
    return std::unexpected(file.string() + " cannot be read, or is too large.");
  const auto log = SessionLog::open(*bytes);
  if (!log)
    return std::unexpected(file.string() + ": " + log.error());
  return log->isComplete() ? std::optional(chromiumSession(*log)) : std::nullopt;
}

Session newestSession(const std::vector<SessionFile>& files, const path& profile) {
  for (const SessionFile& file : files) {
    auto session = sessionIn(file.path);
    if (!session)
      return std::unexpected(std::move(session.error()));
    if (std::optional<LoggedSession>& complete = *session)
      return std::move(*complete);
  }
  if (files.empty())
    return std::unexpected("What the browser has open with the profile " + profile.string() +
                           " is not known: it has written no session log since it was started.");
  return std::unexpected(files.front().path.string() + " is not complete, nor is an older session log.");
}

std::vector<SessionFile> logsOf(const std::optional<BrowserRun>& run, const path& folder) {
  auto files = sessionFiles(folder);
  if (run)
    std::erase_if(files, [&](const SessionFile& file) { return !run->mayHaveWritten(file); });
  return files;
}

}  // namespace

Session chromiumProfileSession(const path& profile, const std::optional<BrowserRun>& run) {
  const path folder = profile / "Sessions";
  Session session;
  // The browser begins the readable log first.
  const auto encrypted = logsOf(run, profile / "Sessions_Encrypted");
  auto files = logsOf(run, folder);
  for (int attempt = 0; attempt < attempts; ++attempt) {
    if (areStale(files, encrypted))
      return std::unexpected("The browser keeps the session in " + profile.string() + " encrypted.");
    session = newestSession(files, profile);
    auto later = logsOf(run, folder);
    if (session || later == files)
      break;
    files = std::move(later);
  }
  return session;
}

std::vector<std::int32_t> chromiumApplicationWindows(const path& profile) {
  return newestSession(sessionFiles(profile / "Sessions", "Apps_"), profile).value_or(LoggedSession()).otherWindows;
}

}  // namespace BrowserSessions
