#include "BrowserSessions/Chromium/LoggedSession.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "BrowserSessions/Chromium/DevTools/DevToolsSession.h"

namespace BrowserSessions {

namespace {

using Tabs = std::vector<DevToolsTab>;

// The profiles, private windows excluded, whose new windows are listed.
std::set<std::string> ordinaryProfiles(const DevToolsSession& live, const std::set<std::int32_t>& loggedWindows) {
  std::set<std::string> profiles = {live.mainProfile};
  for (const DevToolsTab& tab : live.tabs)
    if (loggedWindows.contains(tab.window))
      profiles.insert(tab.profile);
  return profiles;
}

// The tabs of the ordinary windows, by the numbers of the windows.
std::map<std::int32_t, Tabs> ordinaryWindows(const DevToolsSession& live, const LoggedSession& logged) {
  std::set<std::int32_t> normal;
  for (const ChromiumWindow& window : logged.windows)
    normal.insert(window.number);
  const std::set<std::int32_t> others(logged.otherWindows.begin(), logged.otherWindows.end());
  const auto profiles = ordinaryProfiles(live, normal);
  std::map<std::int32_t, Tabs> windows;
  for (const DevToolsTab& tab : live.tabs)
    if (!others.contains(tab.window) && profiles.contains(tab.profile))
      windows[tab.window].push_back(tab);
  return windows;
}

BrowserWindow contents(Tabs tabs) {
  std::ranges::sort(tabs, {}, &DevToolsTab::index);
  BrowserWindow window;
  for (DevToolsTab& tab : tabs) {
    if (tab.isShown)
      window.activeTab = window.tabs.size();
    window.tabs.push_back(std::move(tab.page));
  }
  return window;
}

}  // namespace

BrowserSession browserSession(LoggedSession logged) {
  BrowserSession session;
  for (ChromiumWindow& window : logged.windows)
    if (!window.contents.tabs.empty())
      session.push_back(std::move(window.contents));
  return session;
}

BrowserSession joined(const DevToolsSession& live, const LoggedSession& logged) {
  BrowserSession session;
  auto windows = ordinaryWindows(live, logged);
  for (const ChromiumWindow& known : logged.windows)
    if (auto window = windows.extract(known.number))
      session.push_back(contents(std::move(window.mapped())));
  for (auto& [number, tabs] : windows)
    session.push_back(contents(std::move(tabs)));
  return session;
}

}  // namespace BrowserSessions
