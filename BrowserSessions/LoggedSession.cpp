#include "BrowserSessions/LoggedSession.h"

#include <utility>

namespace BrowserSessions {

BrowserSession browserSession(LoggedSession logged) {
  BrowserSession session;
  for (ChromiumWindow& window : logged.windows)
    if (!window.contents.tabs.empty())
      session.push_back(std::move(window.contents));
  return session;
}

}  // namespace BrowserSessions
