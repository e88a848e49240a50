#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/System/ProcessInfo.h"

namespace BrowserSessions {

/// A Firefox that runs.
struct RunningFirefox {
  /// The folder of its profile.
  std::filesystem::path profile;
  /// None where this program is in a sandbox that keeps it from knowing the process.
  std::optional<pid_t> process;

  bool operator==(const RunningFirefox&) const = default;
};

/// Below which folders the installations of Firefox keep their profiles.
struct FirefoxHome {
  std::filesystem::path home;
  /// Where programs of this user keep their configuration: $XDG_CONFIG_HOME.
  std::filesystem::path configuration;

  /// The user's.
  static FirefoxHome ofUser();
};

/// Each Firefox that runs: an ordinary one or an ESR, in a Flatpak or in a Snap. Each profile is there once, and one
/// that no Firefox has locked is not. These are the profiles that Firefox itself offers; a folder elsewhere that was
/// only named when Firefox was started is not among them; see `firefoxProfileGivenTo`.
std::vector<RunningFirefox> runningFirefoxes(const FirefoxHome& home = FirefoxHome::ofUser());

/// The profile folder that a process was told to use (--profile, with an absolute path), where it has locked that. None
/// for a process in a sandbox, whose paths are its own.
std::optional<std::filesystem::path> firefoxProfileGivenTo(const DesktopSupport::ProcessInfo& process);

}  // namespace BrowserSessions
