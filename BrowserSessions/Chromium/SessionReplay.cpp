#include "BrowserSessions/Chromium/SessionReplay.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "BrowserSessions/BrowserFiles.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

enum CommandID : std::uint8_t {
  setTabWindow = 0,
  setTabIndexInWindow = 2,
  prunedFromBack = 5,
  updateNavigation = 6,
  selectNavigation = 7,
  setSelectedTab = 8,
  setWindowType = 9,
  prunedFromFront = 11,
  tabClosed = 16,
  windowClosed = 17,
  setActiveWindow = 20,
  lastActiveTime = 21,
  pruned = 24,
};

constexpr std::int32_t normalWindow = 0;

// A log with more than this is damaged, and would use up the memory.
constexpr std::size_t maximumTabsAndWindows = 100'000;

// The layout of the records with a time, which is aligned.
constexpr std::size_t timedSize = 16;
constexpr std::size_t timeOffset = 8;

// Browsers keep 50 pages for each tab. A log with many more would slow down each removal.
constexpr std::size_t maximumPages = 128;

std::int32_t integer(std::string_view payload, std::size_t position) {
  return littleEndian<std::int32_t>(payload.substr(position * sizeof(std::int32_t)));
}

}  // namespace

std::vector<TabHistory::Entry>::const_iterator TabHistory::firstFrom(std::int64_t place) const {
  return std::ranges::lower_bound(entries_, place, {}, &Entry::place);
}

void TabHistory::put(std::int32_t place, const Page& page) {
  const auto found = entries_.begin() + std::distance(entries_.cbegin(), firstFrom(place));
  if (found != entries_.end() && found->place == place)
    found->page = page;
  else if (place >= 0 && entries_.size() < maximumPages)
    entries_.insert(found, Entry{place, page});
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

void SessionReplay::apply(const SessionCommand& command) {
  if (tabs_.size() + windows_.size() >= maximumTabsAndWindows)
    return;
  const auto& [id, payload] = command;
  if (id == updateNavigation)
    applyNavigation(payload);
  else if (id == tabClosed && payload.size() == timedSize)
    tabs_.erase(integer(payload, 0));
  else if (id == windowClosed && payload.size() == timedSize)
    windows_.erase(integer(payload, 0));
  else if (id == lastActiveTime && payload.size() == timedSize)
    applyLastActive(integer(payload, 0), littleEndian<std::int64_t>(payload.substr(timeOffset)));
  else if (id == setActiveWindow && payload.size() == sizeof(ID))
    activeWindow_ = integer(payload, 0);
  else if (id == pruned && payload.size() == 3 * sizeof(ID))
    tabs_[integer(payload, 0)].history.remove(integer(payload, 1), integer(payload, 2));
  else if (payload.size() == 2 * sizeof(ID))
    applyPair(id, integer(payload, 0), integer(payload, 1));
}

void SessionReplay::applyPair(std::uint8_t id, std::int32_t first, std::int32_t second) {
  switch (id) {
    case setTabWindow:
      tabs_[second].window = first;
      break;
    case setTabIndexInWindow:
      tabs_[first].index = second;
      break;
    case prunedFromBack:
      tabs_[first].history.removeFrom(second);
      break;
    case selectNavigation:
      tabs_[first].history.select(second);
      break;
    case setSelectedTab:
      windows_[first].shownIndex = second;
      break;
    case setWindowType:
      windows_[first].type = second;
      break;
    case prunedFromFront:
      tabs_[first].history.remove(0, second);
      break;
    default:
      break;
  }
}

void SessionReplay::applyNavigation(std::string_view payload) {
  auto fields = PickleReader::open(payload);
  const auto tab = fields ? fields->integer() : std::nullopt;
  const auto place = tab ? fields->integer() : std::nullopt;
  const auto url = place ? fields->text() : std::nullopt;
  const auto title = url ? fields->text16() : std::nullopt;
  if (title)
    tabs_[*tab].history.put(*place, {*url, *title});
}

void SessionReplay::applyLastActive(ID tab, std::int64_t time) {
  if (const auto known = tabs_.find(tab); known != tabs_.end())
    known->second.lastActive = time;
}

std::vector<SessionReplay::Shown> SessionReplay::shownWindows() const {
  std::map<ID, Shown> windows;
  for (const auto& [id, tab] : tabs_) {
    const auto window = tab.window ? windows_.find(*tab.window) : windows_.end();
    const auto page = tab.history.current();
    if (window == windows_.end() || window->second.type != normalWindow || !page)
      continue;
    Shown& shown = windows[window->first];
    shown.id = window->first;
    shown.shownIndex = window->second.shownIndex;
    shown.lastActive = std::max(shown.lastActive, tab.lastActive);
    shown.pages.emplace(tab.index, *page);
  }
  std::vector<Shown> list;
  for (auto& [id, window] : windows)
    list.push_back(std::move(window));
  return list;
}

std::vector<SessionReplay::Shown>::iterator SessionReplay::frontWindow(std::vector<Shown>& windows) const {
  const auto active = activeWindow_ ? std::ranges::find(windows, *activeWindow_, &Shown::id) : windows.end();
  return active != windows.end() ? active : std::ranges::max_element(windows, {}, &Shown::lastActive);
}

BrowserWindow SessionReplay::contents(const Shown& window) {
  std::vector<std::optional<BrowserTab>> tabs;
  std::size_t shown = window.pages.size();
  for (const auto& [index, page] : window.pages) {
    if (index == window.shownIndex)
      shown = tabs.size();
    tabs.push_back(page.url.empty() ? std::nullopt
                                    : std::optional(BrowserTab{DesktopSupport::shortened(utf8FromUTF16(page.title)),
                                                               DesktopSupport::validUTF8(page.url)}));
  }
  return listedTabs(std::move(tabs), shown);
}

std::vector<SessionReplay::ID> SessionReplay::otherWindows() const {
  std::vector<ID> others;
  for (const auto& [id, window] : windows_)
    if (window.type && window.type != normalWindow)
      others.push_back(id);
  return others;
}

LoggedSession SessionReplay::session() const {
  std::vector<Shown> windows = shownWindows();
  if (const auto front = frontWindow(windows); front != windows.end())
    std::rotate(windows.begin(), front, std::next(front));
  LoggedSession session = {.windows = {}, .otherWindows = otherWindows()};
  for (const Shown& window : windows) {
    const auto isShown = [&](const auto& each) { return each.first == window.shownIndex && !each.second.url.empty(); };
    session.windows.push_back({window.id, contents(window), std::ranges::any_of(window.pages, isShown)});
    session.tabsWithoutAddress += window.pages.size() - session.windows.back().contents.tabs.size();
  }
  return session;
}

LoggedSession chromiumSession(SessionLog log) {
  SessionReplay replay;
  while (const auto command = log.next())
    replay.apply(*command);
  return replay.session();
}

}  // namespace BrowserSessions
