#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace BrowserSessions {

/// The file of a session log of a Chromium profile.
struct SessionFile {
  std::filesystem::path path;
  /// The time at which the log was begun, in microseconds since the beginning of 1601, UTC. Unique within a profile.
  std::int64_t begun = 0;

  bool operator==(const SessionFile&) const = default;
};

/// The logs in a folder, the newest first: the files <prefix><begun>. The browser's own windows have the prefix
/// "Session_", those of web applications "Apps_". Empty if there is no such folder, or it cannot be read.
std::vector<SessionFile> sessionFiles(const std::filesystem::path& folder, std::string_view prefix = "Session_");

/// Whether the browser has stopped writing the readable logs of a profile and goes on in the encrypted ones: whether
/// the newest encrypted log was begun and written minutes after the newest readable one.
bool areStale(const std::vector<SessionFile>& readable, const std::vector<SessionFile>& encrypted);

/// A run of a browser of the Chromium family. It tells the session logs that this run writes from those that earlier
/// runs left; in the first seconds there are only the latter.
class ChromiumRun {
 public:
  /// The run of this process, which holds the lock of a user data folder. `processes` is where /proc is mounted.
  ChromiumRun(const std::filesystem::path& userData, pid_t process, const std::filesystem::path& processes = "/proc");

  /// Whether this run may have written the log: the log was begun after the lock was made, or the process has it open,
  /// which also holds if the clock was set back meanwhile.
  [[nodiscard]] bool mayHaveWritten(const SessionFile& log) const;

 private:
  [[nodiscard]] bool hasOpen(const std::filesystem::path& file) const;

  /// Microseconds since the beginning of 1601, UTC; `nullopt` if there is no lock.
  std::optional<std::int64_t> begun_;
  std::filesystem::path openFiles_;
};

}  // namespace BrowserSessions
