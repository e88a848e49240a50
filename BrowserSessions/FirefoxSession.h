#pragma once

#include <expected>
#include <filesystem>
#include <string>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// What the running Firefox with this profile folder has open, the window in front first; see `runningFirefoxProfiles`.
/// Firefox saves it some 2 to 15 seconds after a change, and once an hour while nobody uses the computer; private
/// windows and windows with blank pages only are never saved. Where what it saved last cannot be read, this is what it
/// saved before. Fails with a sentence that names the file where neither can, as shortly after Firefox's first start.
std::expected<BrowserSession, std::string> firefoxSession(const std::filesystem::path& profile);

}  // namespace BrowserSessions
