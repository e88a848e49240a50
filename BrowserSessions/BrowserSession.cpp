#include "BrowserSessions/BrowserSession.h"

#include <algorithm>
#include <string>
#include <utility>

namespace BrowserSessions {

namespace {

bool isListed(const BrowserTab& tab) {
  return tab.url.size() <= longestAddress;
}

BrowserWindow withoutLongAddresses(BrowserWindow window) {
  std::vector<std::optional<BrowserTab>> tabs;
  for (BrowserTab& tab : window.tabs)
    tabs.push_back(isListed(tab) ? std::optional(std::move(tab)) : std::nullopt);
  return listedTabs(std::move(tabs), window.activeTab);
}

}  // namespace

BrowserWindow listedTabs(std::vector<std::optional<BrowserTab>> tabs, std::size_t shown) {
  BrowserWindow window;
  std::size_t index = 0;
  for (std::optional<BrowserTab>& tab : tabs) {
    if (index++ == shown)
      window.activeTab = window.tabs.size();
    if (tab)
      window.tabs.push_back(*std::move(tab));
  }
  if (window.activeTab == window.tabs.size() && !window.tabs.empty())
    --window.activeTab;
  return window;
}

void leaveOutLongAddresses(SessionReading& reading) {
  std::size_t count = 0;
  BrowserSession session;
  for (BrowserWindow& window : reading.session) {
    const std::size_t before = window.tabs.size();
    if (!std::ranges::all_of(window.tabs, isListed))
      window = withoutLongAddresses(std::move(window));
    count += before - window.tabs.size();
    if (before == 0 || !window.tabs.empty())
      session.push_back(std::move(window));
  }
  reading.session = std::move(session);
  if (count > 0)
    reading.problems.push_back("Tabs left out because their addresses are longer than " +
                               std::to_string(longestAddress) + " bytes: " + std::to_string(count) + '.');
}

}  // namespace BrowserSessions
