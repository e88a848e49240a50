#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "DesktopSupport/ProcessInfo.h"

namespace BrowserSessions {

/// Below which folders the installations of Firefox keep their profiles.
struct FirefoxHome {
  std::filesystem::path home;
  /// Where programs of this user keep their configuration: $XDG_CONFIG_HOME.
  std::filesystem::path configuration;

  /// The user's.
  static FirefoxHome ofUser();
};

/// The profile folders of each Firefox that runs: an ordinary one or an ESR, in a Flatpak or in a Snap. Each profile is
/// there once, and one that no Firefox has locked is not. These are the profiles that Firefox itself offers; a folder
/// elsewhere that was only named when Firefox was started is not among them; see `firefoxProfileGivenTo`.
std::vector<std::filesystem::path> runningFirefoxProfiles(const FirefoxHome& home = FirefoxHome::ofUser());

/// The profile folder that a process was told to use (--profile, with an absolute path), where that is locked. None for
/// a process in a sandbox, whose paths are its own.
std::optional<std::filesystem::path> firefoxProfileGivenTo(const DesktopSupport::ProcessInfo& process);

}  // namespace BrowserSessions
