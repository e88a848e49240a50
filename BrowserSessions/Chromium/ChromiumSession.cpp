#include "BrowserSessions/Chromium/ChromiumSession.h"

#include "BrowserSessions/Chromium/SessionReplay.h"

namespace BrowserSessions {

LoggedSession chromiumSession(SessionLog log) {
  SessionReplay replay;
  while (const auto command = log.next())
    replay.apply(*command);
  return replay.session();
}

}  // namespace BrowserSessions
