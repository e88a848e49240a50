#include "BrowserSessions/BrowserSession.h"

#include <algorithm>
#include <string>
#include <utility>

namespace BrowserSessions {

namespace {

bool isListed(const BrowserTab& tab) {
  return tab.url.size() <= longestAddress;
}

// If the shown tab is left out, the next one counts as shown, or the last if there is no next one.
BrowserWindow listed(BrowserWindow window) {
  BrowserWindow rest;
  for (std::size_t index = 0; index < window.tabs.size(); ++index) {
    if (index == window.activeTab)
      rest.activeTab = rest.tabs.size();
    if (isListed(window.tabs[index]))
      rest.tabs.push_back(std::move(window.tabs[index]));
  }
  if (rest.activeTab == rest.tabs.size() && !rest.tabs.empty())
    --rest.activeTab;
  return rest;
}

}  // namespace

void leaveOutLongAddresses(SessionReading& reading) {
  std::size_t count = 0;
  BrowserSession session;
  for (BrowserWindow& window : reading.session) {
    const std::size_t before = window.tabs.size();
    if (!std::ranges::all_of(window.tabs, isListed))
      window = listed(std::move(window));
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
