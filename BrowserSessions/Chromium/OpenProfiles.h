#pragma once

#include <filesystem>
#include <vector>

namespace BrowserSessions {

/// The folders of the profiles that a browser of the Chromium family has windows of, given its user data folder, the
/// one that was used last first, as it was some ten seconds ago. Where the browser does not tell, only the one that was
/// used last, or the first one that it makes. A browser with one profile may keep that in the user data folder itself.
/// Only folders that exist.
std::vector<std::filesystem::path> openChromiumProfiles(const std::filesystem::path& userData);

}  // namespace BrowserSessions
