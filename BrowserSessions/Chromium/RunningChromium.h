#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/Processes/ProcessInfo.h"

namespace BrowserSessions {

/// A browser of the Chromium family that runs.
struct RunningChromium {
  /// Its name in `chromiumBrowsers`.
  std::string_view browser;
  pid_t process = 0;
  /// The folder with its profiles.
  std::filesystem::path userData;

  bool operator==(const RunningChromium&) const = default;
};

/// The places in which to look for browsers and processes.
struct ChromiumPlaces {
  std::filesystem::path home;
  /// The user's configuration folder.
  std::filesystem::path configuration;
  std::filesystem::path processes = "/proc";
};

/// The places of the current user.
ChromiumPlaces chromiumPlaces();

/// The browsers that run with one of their usual user data folders, whose lock a process of the browser holds, in the
/// order of `chromiumBrowsers`.
std::vector<RunningChromium> runningChromiumBrowsers(const ChromiumPlaces& places = chromiumPlaces());

/// The browser that runs in this process, if it was told which user data folder to use (--user-data-dir with an
/// absolute path) and holds the lock of that folder. Does not find browsers in a sandbox.
std::optional<RunningChromium> chromiumWithGivenUserData(const DesktopSupport::ProcessInfo& process);

}  // namespace BrowserSessions
