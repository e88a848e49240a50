#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include <sys/types.h>

#include "BrowserSessions/Chromium/SessionFiles.h"

namespace BrowserSessions {

/// A run of a browser of the Chromium family, by which the session logs that it writes are told from those that are
/// left from the runs before: for the first seconds there are no others.
class BrowserRun {
 public:
  /// The run of this process, which has the lock of a user data folder. `processes` is where the system tells about
  /// processes.
  BrowserRun(const std::filesystem::path& userData, pid_t process, const std::filesystem::path& processes = "/proc");

  /// Whether the run may have written the log: it was begun behind the lock, or the process has it open, as where the
  /// clock was set back meanwhile.
  [[nodiscard]] bool mayHaveWritten(const SessionFile& log) const;

 private:
  [[nodiscard]] bool hasOpen(const std::filesystem::path& file) const;

  /// Microseconds since the beginning of 1601, UTC; none where there is no lock.
  std::optional<std::int64_t> begun_;
  std::filesystem::path openFiles_;
};

}  // namespace BrowserSessions
