#pragma once

#include "BrowserSessions/BrowserSession.h"
#include "BrowserSessions/SessionLog.h"

namespace BrowserSessions {

/// What is open once all that the log tells has happened: the browser's normal windows, without the pop-ups, the
/// developer tools and the windows of web applications. The window in front is the first one, the others follow in the
/// order in which they were opened. A tab has an empty title where the log has none, as with a page that has just been
/// loaded, and an empty address where that was too long for the log. Private windows are in no log. Records that are
/// not known, or are not as they must be, do not count.
BrowserSession chromiumSession(SessionLog log);

}  // namespace BrowserSessions
