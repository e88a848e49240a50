#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "BrowserSessions/BrowserSession.h"
#include "BrowserSessions/LoggedSession.h"

namespace BrowserSessions {

/// A tab, as the browser itself tells of it while it runs.
struct LiveTab {
  /// The number of its window, the same that the session log has.
  std::int32_t window = 0;
  /// Its place in the tab strip.
  std::int32_t index = 0;
  /// Whether it is the one that its window shows.
  bool isShown = false;
  /// A name for what the tab belongs to: a profile, or the private windows of one.
  std::string profile = {};
  BrowserTab page = {};

  bool operator==(const LiveTab&) const = default;
};

/// What a browser of the Chromium family itself tells of what it has open at this moment, private windows included: one
/// of the ways to ask it, where there is one.
struct LiveSession {
  std::vector<LiveTab> tabs;
  /// The profile that was used last.
  std::string mainProfile;

  bool operator==(const LiveSession&) const = default;
};

/// What is open by both accounts: the tabs, their order, titles and addresses as the browser itself tells, and what it
/// does not tell from its logs. A window that the logs know counts if it is a normal one. One that they don't know yet
/// counts if its profile is the one that was used last, or has a window in the logs, as no private one has. The windows
/// are in the order of the logs, and those that are new in the order in which they were opened.
BrowserSession joined(const LiveSession& live, const LoggedSession& logged);

}  // namespace BrowserSessions
