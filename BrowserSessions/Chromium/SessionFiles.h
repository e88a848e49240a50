#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace BrowserSessions {

/// A session log of a Chromium profile.
struct SessionFile {
  std::filesystem::path path;
  /// When the log was begun: microseconds since the beginning of 1601, UTC. No two logs of a profile have the same.
  std::int64_t begun = 0;

  bool operator==(const SessionFile&) const = default;
};

/// The logs of the browser's own windows in a folder, the newest first: the files Session_<begun>; with another prefix,
/// as "Apps_" for the windows of web applications, those of that kind. None where there is no such folder, or it cannot
/// be read.
std::vector<SessionFile> sessionFiles(const std::filesystem::path& folder, std::string_view prefix = "Session_");

/// Whether the browser goes on in the encrypted logs of a profile and no longer in the readable ones, given the logs of
/// either kind: whether the newest of the encrypted ones was begun and written minutes after the newest readable one.
bool areStale(const std::vector<SessionFile>& readable, const std::vector<SessionFile>& encrypted);

}  // namespace BrowserSessions
