#pragma once

#include <expected>
#include <filesystem>
#include <string>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// What a running browser of the Chromium family has open with the profile in a folder, as it was a few seconds ago;
/// see `chromiumSession`. Nothing is open where the profile has no session log. Fails where the current log cannot be
/// read or understood, is not complete, or is kept encrypted: an older log does not stand in for it.
std::expected<BrowserSession, std::string> chromiumProfileSession(const std::filesystem::path& profile);

}  // namespace BrowserSessions
