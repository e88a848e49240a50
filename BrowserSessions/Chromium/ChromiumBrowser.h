#pragma once

#include <string_view>
#include <vector>

namespace BrowserSessions {

/// A browser of the Chromium family: how to recognise it, and where it keeps its user data.
struct ChromiumBrowser {
  /// A folder below the configuration folder of a Flatpak application.
  struct FlatpakFolder {
    std::string_view application;
    std::string_view folder;
  };

  std::string_view name;
  /// The file names of its program.
  std::vector<std::string_view> programs;
  /// Below the user's configuration folder, one for each release channel.
  std::vector<std::string_view> configurationFolders;
  std::vector<FlatpakFolder> flatpakFolders;
  /// Below the home folder.
  std::vector<std::string_view> snapFolders;
};

/// All known browsers of the family. A further one is one more row.
const std::vector<ChromiumBrowser>& chromiumBrowsers();

}  // namespace BrowserSessions
