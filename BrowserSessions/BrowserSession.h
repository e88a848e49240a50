#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <vector>

namespace BrowserSessions {

/// A page that a browser has open.
struct BrowserTab {
  /// The page's title, shortened (see `DesktopSupport::shortened`); empty if the browser knows none.
  std::string title;
  /// The text in the address bar; empty if there is none.
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

/// A window with those of `tabs` that have a value; `shown` is the index in `tabs` of the tab that is shown. If that
/// tab has no value, the next one counts as shown, or the last if there is no next one.
[[nodiscard]] BrowserWindow listedTabs(std::vector<std::optional<BrowserTab>> tabs, std::size_t shown);

/// The windows that a browser has open, the one in front first if the browser tells which one that is.
using BrowserSession = std::vector<BrowserWindow>;

/// What could be read of a browser's session.
struct SessionReading {
  BrowserSession session;
  /// A sentence for each part, such as a profile, that could not be read and is left out.
  std::vector<std::string> problems = {};

  bool operator==(const SessionReading&) const = default;
};

/// The answer of every family of browsers: a reading, or a sentence that says why there is none.
using SessionResult = std::expected<SessionReading, std::string>;

/// The length of the longest address that is listed, in bytes.
inline constexpr std::size_t longestAddress = 64 << 10;

/// Leaves out the tabs whose addresses are longer than `longestAddress`, and the windows that have no other tab. The
/// number of these tabs becomes a further problem.
void leaveOutLongAddresses(SessionReading& reading);

}  // namespace BrowserSessions
