#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/Processes/ProcessInfo.h"

namespace BrowserSessions {

/// The lock of a running Firefox on its profile.
struct FirefoxLock {
  /// The process that holds it; `nullopt` if that is outside of this program's sandbox or on another computer.
  std::optional<pid_t> holder;

  bool operator==(const FirefoxLock&) const = default;
};

/// The lock that another process has on the Firefox profile in this folder; `nullopt` if there is none, or its file
/// does not exist or cannot be opened. A Firefox holds the lock for as long as it runs, and the kernel releases it
/// however the process ends. The lock's file stays, so its existence means nothing. Never blocks.
std::optional<FirefoxLock> firefoxLock(const std::filesystem::path& profile);

/// A Firefox that runs.
struct RunningFirefox {
  /// The folder of its profile.
  std::filesystem::path profile;
  /// `nullopt` if this program's sandbox hides the process.
  std::optional<pid_t> process;

  bool operator==(const RunningFirefox&) const = default;
};

/// The folders below which installations of Firefox keep their profiles.
struct FirefoxHome {
  std::filesystem::path home;
  /// The folder for configuration files, $XDG_CONFIG_HOME.
  std::filesystem::path configuration;

  /// The folders of the user.
  static FirefoxHome ofUser();
};

/// The Firefoxes that run (ordinary or ESR, also as a Flatpak or a Snap): one for each profile that is locked. Only the
/// profiles that Firefox itself offers are looked at; see `firefoxProfileGivenTo` for the others.
std::vector<RunningFirefox> runningFirefoxes(const FirefoxHome& home = FirefoxHome::ofUser());

/// The profile folder that a process was told to use (--profile with an absolute path) and has locked; `nullopt` if
/// there is none, or the process is in a sandbox, which has paths of its own.
std::optional<std::filesystem::path> firefoxProfileGivenTo(const DesktopSupport::ProcessInfo& process);

}  // namespace BrowserSessions
