#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// A window of a browser of the Chromium family.
struct ChromiumWindow {
  /// No two windows have the same, whichever profile they are of, and a window has it for as long as it is open.
  std::int32_t number = 0;
  BrowserWindow contents;
  /// Whether the tab that the window shows is among its tabs. It is not if it is left out, or if the log has no page of
  /// it.
  bool hasShownTab = true;

  bool operator==(const ChromiumWindow&) const = default;
};

/// What the session logs of a browser of the Chromium family tell.
struct LoggedSession {
  /// The browser's normal windows, the one in front first, the others in the order in which they were opened. One whose
  /// tabs are all left out has none.
  std::vector<ChromiumWindow> windows;
  /// The numbers of its other windows: pop-ups, developer tools, web applications.
  std::vector<std::int32_t> otherWindows = {};
  /// How many tabs of the normal windows are left out, as their addresses were too long for the log.
  std::size_t tabsWithoutAddress = 0;

  bool operator==(const LoggedSession&) const = default;
};

/// The normal windows that have tabs, without their numbers.
BrowserSession browserSession(LoggedSession logged);

}  // namespace BrowserSessions
