#pragma once

#include <string>
#include <vector>

namespace BrowserSessions {

/// A page that a browser has open.
struct BrowserTab {
  /// As the browser has it, cut after some length (see `DesktopSupport::shortened`); empty where it knows none.
  std::string title;
  /// What the address bar shows, as the browser has it; empty where there is none.
  std::string url;

  bool operator==(const BrowserTab&) const = default;
};

/// A window of a browser, with its tabs in the order of the tab strip.
struct BrowserWindow {
  std::vector<BrowserTab> tabs;
  /// The index of the tab that is shown.
  std::size_t activeTab = 0;

  bool operator==(const BrowserWindow&) const = default;
};

/// What a browser has open: its windows, the one in front first where the browser tells.
using BrowserSession = std::vector<BrowserWindow>;

/// What could be read of a browser's session.
struct SessionReading {
  BrowserSession session;
  /// A sentence for each part, such as a profile, that could not be read and is left out.
  std::vector<std::string> problems = {};

  bool operator==(const SessionReading&) const = default;
};

}  // namespace BrowserSessions
