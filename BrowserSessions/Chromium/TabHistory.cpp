#include "BrowserSessions/Chromium/TabHistory.h"

#include <algorithm>
#include <iterator>

namespace BrowserSessions {

namespace {

// Browsers keep 50 pages; a log that has more would make each removal slower.
constexpr std::size_t maximumPages = 128;

}  // namespace

std::vector<TabHistory::Entry>::const_iterator TabHistory::firstFrom(std::int64_t place) const {
  return std::ranges::lower_bound(entries_, place, {}, &Entry::place);
}

void TabHistory::put(std::int32_t place, const Page& page) {
  const auto behind = entries_.begin() + std::distance(entries_.cbegin(), firstFrom(place));
  if (behind != entries_.end() && behind->place == place)
    behind->page = page;
  else if (place >= 0 && entries_.size() < maximumPages)
    entries_.insert(behind, Entry{place, page});
}

void TabHistory::remove(std::int32_t first, std::int32_t count) {
  if (first < 0 || count <= 0)
    return;
  const std::int64_t end = std::int64_t{first} + count;
  if (selected_ >= end)
    selected_ -= count;
  else if (selected_ >= first)
    selected_ = first - 1;
  for (auto entry = entries_.erase(firstFrom(first), firstFrom(end)); entry != entries_.end(); ++entry)
    entry->place -= count;
}

void TabHistory::removeFrom(std::int32_t place) {
  entries_.erase(firstFrom(place), entries_.cend());
}

std::optional<TabHistory::Page> TabHistory::current() const {
  if (entries_.empty())
    return std::nullopt;
  const auto entry = firstFrom(selected_);
  return entry != entries_.end() ? entry->page : entries_.back().page;
}

}  // namespace BrowserSessions
