#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <vector>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// The folders of the profiles that a browser of the Chromium family has windows of, given its user data folder; where
/// it does not tell, the one of the profile that was used last, or of the first one that it makes. A browser with one
/// profile may keep that in the user data folder itself. Only folders that exist.
std::vector<std::filesystem::path> openChromiumProfiles(const std::filesystem::path& userData);

/// What a running browser of the Chromium family has open, all of its profiles taken together. A profile whose session
/// cannot be read is left out; fails where that leaves none.
std::expected<BrowserSession, std::string> chromiumUserDataSession(const std::filesystem::path& userData);

}  // namespace BrowserSessions
