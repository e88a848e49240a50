#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

struct DevToolsSession;

/// A window of a browser of the Chromium family.
struct ChromiumWindow {
  /// Unique among the windows of all profiles, and the same for as long as the window is open.
  std::int32_t number = 0;
  BrowserWindow contents;
  /// Whether the tab that the window shows is among its tabs: not if it is left out, or if the log has no page for it.
  bool hasShownTab = true;

  bool operator==(const ChromiumWindow&) const = default;
};

/// What the session logs of a browser of the Chromium family say.
struct LoggedSession {
  /// The browser's normal windows: the one in front, then the others in the order in which they were opened. A window
  /// whose tabs are all left out is here without tabs.
  std::vector<ChromiumWindow> windows;
  /// The numbers of its other windows: pop-ups, developer tools, web applications.
  std::vector<std::int32_t> otherWindows = {};
  /// The number of tabs of normal windows that are left out because their addresses were too long for the log.
  std::size_t tabsWithoutAddress = 0;

  bool operator==(const LoggedSession&) const = default;
};

/// The normal windows that have tabs, without their numbers.
BrowserSession browserSession(LoggedSession logged);

/// The open windows according to the browser's DevTools and its logs. The tabs, their order, titles and addresses come
/// from the DevTools. The logs tell which windows are normal ones, and their order. A window that is not in the logs
/// yet is listed if its profile was used last or has a window in the logs, which no private one has; such windows come
/// last, in the order in which they were opened.
BrowserSession joined(const DevToolsSession& live, const LoggedSession& logged);

}  // namespace BrowserSessions
