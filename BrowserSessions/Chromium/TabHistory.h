#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace BrowserSessions {

/// The pages that a Chromium tab goes back and forth between, each at its place. There may be places without a page: a
/// browser keeps those around the current one only.
class TabHistory {
 public:
  struct Page {
    /// The bytes of the address, and those of the title in UTF-16.
    std::string_view url;
    std::string_view title;
  };

  /// Puts a page at a place, instead of the one that is there.
  void put(std::int32_t place, const Page& page);
  /// Makes the page at a place the current one.
  void select(std::int32_t place) { selected_ = place; }
  /// Removes `count` places, the first one being `first`; those behind move up, and the current page stays the current
  /// one. Does nothing where this is no range of places.
  void remove(std::int32_t first, std::int32_t count);
  /// Removes the pages from this place on.
  void removeFrom(std::int32_t place);

  /// The page that is shown; none where there is no page at all.
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

}  // namespace BrowserSessions
