#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "BrimlaceTextView/Lines.h"
#include "BrowserSessions/Chromium/PageNames.h"
#include "BrowserSessions/Firefox/FirefoxSession.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "Fuzz/Target.h"
#include "Platform/Text/UTF8.h"

namespace {

using BrowserSessions::BrowserSession;
using BrowserSessions::BrowserTab;
using BrowserSessions::ChromiumWindow;
using DesktopSupport::shortened;
using Fuzz::require;

/// Windows of Chromium, and the titles of the windows on screen.
struct Screen {
  std::vector<ChromiumWindow> windows = {};
  std::vector<std::string> titles = {};
};

// The window that was opened last comes first.
void addWindow(Screen& screen) {
  screen.windows.push_back({.number = -static_cast<std::int32_t>(screen.windows.size()), .contents = {}});
}

void addTab(Screen& screen, std::string_view line) {
  if (screen.windows.empty())
    addWindow(screen);
  auto& contents = screen.windows.back().contents;
  const bool isShown = line.starts_with('*');
  if (isShown)
    contents.activeTab = contents.tabs.size();
  line.remove_prefix(isShown ? 1 : 0);
  const std::size_t end = std::min(line.find('\t'), line.size());
  contents.tabs.push_back({std::string(line.substr(0, end)), std::string(line.substr(std::min(end + 1, line.size())))});
}

Screen screenOf(std::string_view text) {
  Screen screen;
  for (const std::string_view line : BrimlaceTextView::lines(text))
    if (line.empty())
      addWindow(screen);
    else if (line.starts_with('#'))
      screen.titles.emplace_back(line.substr(1));
    else
      addTab(screen, line);
  return screen;
}

void requireNames(const std::string& url) {
  // A host's name in ASCII may take more bytes in UTF-8.
  constexpr std::size_t highestGrowth = 4;
  const std::string name = BrowserSessions::chromiumPageName(url);
  if (Platform::stringFromUTF8(url))
    Fuzz::requireUTF8(name);
  require(name.size() <= highestGrowth * url.size(), "A name is about as long as the address.");
  require(url.ends_with(BrowserSessions::firefoxPageName(url)), "A name in Firefox is the end of the address.");
}

void requireWindowTitles(const Screen& before, const Screen& after) {
  std::vector<std::string> shown;
  for (std::size_t window = 0; window < before.windows.size(); ++window) {
    const auto& tabs = before.windows[window].contents.tabs;
    const auto& named = after.windows[window].contents.tabs;
    require(tabs.size() == named.size(), "No tab is lost.");
    for (std::size_t tab = 0; tab < tabs.size(); ++tab) {
      require(tabs[tab].url == named[tab].url, "A tab keeps its address.");
      if (tab == before.windows[window].contents.activeTab)
        shown.push_back(named[tab].title);
      else
        require(tabs[tab].title == named[tab].title, "Only a tab that is shown has its window's title.");
    }
  }
  std::ranges::reverse(shown);
  require(before.windows == after.windows || shown == before.titles, "All windows have told, or none.");
}

void requireChromiumNames(const std::vector<ChromiumWindow>& before, const std::vector<ChromiumWindow>& after) {
  for (std::size_t window = 0; window < before.size(); ++window)
    for (std::size_t tab = 0; tab < before[window].contents.tabs.size(); ++tab) {
      const auto& [title, url] = before[window].contents.tabs[tab];
      const std::string name = title.empty() ? shortened(BrowserSessions::chromiumPageName(url)) : title;
      require(after[window].contents.tabs[tab].title == name, "A tab without a title has the name of its page.");
    }
}

void requireFirefoxNames(const std::vector<ChromiumWindow>& windows) {
  BrowserSession session;
  for (const ChromiumWindow& window : windows)
    session.push_back(window.contents);
  BrowserSessions::addFirefoxNames(session);
  const BrowserSession once = session;
  BrowserSessions::addFirefoxNames(session);
  require(session == once, "A name stays as it is.");
}

}  // namespace

// The input is what browsers have open. Each line is a tab's title and address with a tab character between them, after
// a '*' if its window shows it. An empty line begins a window; after a '#', a line is the title of a window on screen.
void Fuzz::run(std::string_view input) {
  const Screen screen = screenOf(input);
  for (const ChromiumWindow& window : screen.windows)
    for (const BrowserTab& tab : window.contents.tabs)
      requireNames(tab.url);
  requireFirefoxNames(screen.windows);

  Screen titled = screen;
  BrowserSessions::addWindowTitles(titled.windows, titled.titles);
  requireWindowTitles(screen, titled);
  Screen named = titled;
  BrowserSessions::addChromiumNames(named.windows);
  requireChromiumNames(titled.windows, named.windows);
}
