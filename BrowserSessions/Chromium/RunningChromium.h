#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/System/ProcessInfo.h"

namespace BrowserSessions {

/// A browser of the Chromium family that runs.
struct RunningChromium {
  /// As in `chromiumBrowsers`.
  std::string_view browser;
  pid_t process = 0;
  /// The folder that it keeps its profiles in.
  std::filesystem::path userData;

  bool operator==(const RunningChromium&) const = default;
};

/// Where browsers and processes are looked for.
struct ChromiumPlaces {
  std::filesystem::path home;
  /// The user's configuration folder.
  std::filesystem::path configuration;
  std::filesystem::path processes = "/proc";
};

/// The places of the user who runs this program.
ChromiumPlaces chromiumPlaces();

/// The browsers that run with one of their usual user data folders: a process of the browser holds the folder's lock.
/// They come in the order of `chromiumBrowsers`.
std::vector<RunningChromium> runningChromiumBrowsers(const ChromiumPlaces& places = chromiumPlaces());

/// The browser that a process is, where it was told which user data folder to use (--user-data-dir, with an absolute
/// path) and holds the lock of that. Not for one in a sandbox.
std::optional<RunningChromium> chromiumWithGivenUserData(const DesktopSupport::ProcessInfo& process);

}  // namespace BrowserSessions
