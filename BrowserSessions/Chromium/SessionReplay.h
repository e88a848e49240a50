#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include "BrowserSessions/Chromium/LoggedSession.h"
#include "BrowserSessions/Chromium/SessionLog.h"

namespace BrowserSessions {

/// The history of a Chromium tab: pages, each at its place. Some places have no page, since the browser keeps only the
/// pages around the current one.
class TabHistory {
 public:
  struct Page {
    /// The bytes of the address, and of the title in UTF-16.
    std::string_view url;
    std::string_view title;
  };

  /// Puts a page at a place, and replaces the page that is there.
  void put(std::int32_t place, const Page& page);
  /// Makes the page at a place the current one.
  void select(std::int32_t place) { selected_ = place; }
  /// Removes `count` places from `first` on. The places after them move up, and the current page stays current. Does
  /// nothing if this is not a range of places.
  void remove(std::int32_t first, std::int32_t count);
  /// Removes the pages from this place on.
  void removeFrom(std::int32_t place);

  /// The page that is shown; `nullopt` if there are no pages.
  [[nodiscard]] std::optional<Page> current() const;

 private:
  struct Entry {
    std::int64_t place = 0;
    Page page;
  };

  [[nodiscard]] std::vector<Entry>::const_iterator firstFrom(std::int64_t place) const;

  std::vector<Entry> entries_;
  std::int64_t selected_ = -1;
};

/// Follows a Chromium session log record by record. The bytes of the records must outlive it.
class SessionReplay {
 public:
  /// Makes the change in the record. Ignores unknown and malformed records.
  void apply(const SessionCommand& command);

  /// What is open after the changes so far; see `chromiumSession`.
  [[nodiscard]] LoggedSession session() const;

 private:
  using ID = std::int32_t;

  struct Tab {
    std::optional<ID> window;
    std::int32_t index = -1;
    std::int64_t lastActive = 0;
    TabHistory history;
  };

  struct Window {
    std::optional<std::int32_t> type;
    std::optional<std::int32_t> shownIndex;
  };

  /// A normal window that has tabs, with their pages by the index in the tab strip.
  struct Shown {
    ID id = 0;
    std::optional<std::int32_t> shownIndex;
    std::int64_t lastActive = 0;
    std::multimap<std::int32_t, TabHistory::Page> pages;
  };

  void applyPair(std::uint8_t id, std::int32_t first, std::int32_t second);
  void applyNavigation(std::string_view payload);
  void applyLastActive(ID tab, std::int64_t time);

  [[nodiscard]] std::vector<Shown> shownWindows() const;
  [[nodiscard]] std::vector<Shown>::iterator frontWindow(std::vector<Shown>& windows) const;
  [[nodiscard]] std::vector<ID> otherWindows() const;
  [[nodiscard]] static BrowserWindow contents(const Shown& window);

  std::map<ID, Tab> tabs_;
  std::map<ID, Window> windows_;
  std::optional<ID> activeWindow_;
};

/// What is open after all changes in the log. A tab has an empty title if the log has none, as for a page that has just
/// been loaded, and is left out if its address was too long for the log. Private windows are in no log. Unknown and
/// malformed records are ignored.
LoggedSession chromiumSession(SessionLog log);

}  // namespace BrowserSessions
