#pragma once

#include <expected>
#include <filesystem>
#include <string>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// What the running Firefox with this profile folder has open, the window in front first; see `runningFirefoxes`.
/// Firefox saves it with a delay: that a tab was closed after some 2 to 15 seconds, a new page, title or address after
/// 17 as a rule and sometimes half a minute, and all of that up to an hour later while nobody uses the computer. It
/// takes notice of the order of windows whenever it saves something else. Private windows are never saved. Where what
/// it saved last cannot be read, this is what it saved before. What was saved before the profile was locked is from an
/// earlier run, which has crashed, and does not count. Fails with a sentence that names the file if neither can be
/// read, as in the first seconds after Firefox's start, or if the user has set that all windows are private.
std::expected<BrowserSession, std::string> firefoxSession(const std::filesystem::path& profile);

}  // namespace BrowserSessions
