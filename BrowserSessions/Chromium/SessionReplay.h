#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "BrowserSessions/Chromium/SessionLog.h"
#include "BrowserSessions/Chromium/TabHistory.h"
#include "BrowserSessions/LoggedSession.h"

namespace BrowserSessions {

/// Follows a Chromium session log record by record. The bytes of the records must outlive it.
class SessionReplay {
 public:
  /// Makes the change that the record tells of. Records that are not known, or are not as they must be, do not count.
  void apply(const SessionCommand& command);

  /// What is open after the changes so far; see `chromiumSession`.
  [[nodiscard]] LoggedSession session() const;

 private:
  using Id = std::int32_t;

  struct Tab {
    std::optional<Id> window;
    std::int32_t index = -1;
    std::int64_t lastActive = 0;
    TabHistory history;
  };

  struct Window {
    std::optional<std::int32_t> type;
    std::optional<std::int32_t> shownIndex;
  };

  /// A window that counts, with the pages of its tabs by their index in the tab strip.
  struct Shown {
    Id id = 0;
    std::optional<std::int32_t> shownIndex;
    std::int64_t lastActive = 0;
    std::multimap<std::int32_t, TabHistory::Page> pages;
  };

  void applyPair(std::uint8_t id, std::int32_t first, std::int32_t second);
  void applyNavigation(std::string_view payload);
  void applyLastActive(Id tab, std::int64_t time);

  [[nodiscard]] std::vector<Shown> shownWindows() const;
  [[nodiscard]] std::vector<Shown>::iterator frontWindow(std::vector<Shown>& windows) const;
  [[nodiscard]] std::vector<Id> otherWindows() const;
  [[nodiscard]] static BrowserWindow contents(const Shown& window);

  std::map<Id, Tab> tabs_;
  std::map<Id, Window> windows_;
  std::optional<Id> activeWindow_;
};

}  // namespace BrowserSessions
