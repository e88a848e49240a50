#pragma once

#include "BrowserSessions/Chromium/SessionLog.h"
#include "BrowserSessions/LoggedSession.h"

namespace BrowserSessions {

/// What is open once all that the log tells has happened. A tab has an empty title where the log has none, as with a
/// page that has just been loaded, and is left out if its address was too long for the log. Private windows are in no
/// log. Records that are not known, or are not as they must be, do not count.
LoggedSession chromiumSession(SessionLog log);

}  // namespace BrowserSessions
