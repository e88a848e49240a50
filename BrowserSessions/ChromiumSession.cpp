#include "BrowserSessions/ChromiumSession.h"

#include "BrowserSessions/SessionReplay.h"

namespace BrowserSessions {

LoggedSession chromiumSession(SessionLog log) {
  SessionReplay replay;
  while (const auto command = log.next())
    replay.apply(*command);
  return replay.session();
}

}  // namespace BrowserSessions
