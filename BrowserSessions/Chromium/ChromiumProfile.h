#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "BrowserSessions/Chromium/LoggedSession.h"
#include "BrowserSessions/Chromium/SessionFiles.h"

namespace BrowserSessions {

/// The folders of the profiles that have windows in a browser of the Chromium family, given its user data folder, the
/// one that was used last first. The browser notes this every ten seconds or so; without a note, only the profile that
/// was used last, or the first one that the browser makes. A browser with a single profile may keep it in the user data
/// folder itself. Only folders that exist are listed.
std::vector<std::filesystem::path> openChromiumProfiles(const std::filesystem::path& userData);

/// The number of profiles that the browser with this user data folder has, open or not, as far as it has noted them; at
/// least 1.
std::size_t numberOfChromiumProfiles(const std::filesystem::path& userData);

/// What a running browser of the Chromium family has open with the profile in a folder, as its session log had it a few
/// seconds ago; see `chromiumSession`. Fails with a sentence if the profile has no session log, or none of `run` if
/// that is given, as shortly after the browser's start; also if the current log cannot be read or understood, is
/// incomplete, or is kept encrypted: an older log does not replace it.
std::expected<LoggedSession, std::string> chromiumProfileSession(const std::filesystem::path& profile,
                                                                 const std::optional<ChromiumRun>& run = std::nullopt);

/// The numbers of the profile's windows of web applications, which have a log of their own. Empty if that cannot be
/// read.
std::vector<std::int32_t> chromiumApplicationWindows(const std::filesystem::path& profile);

}  // namespace BrowserSessions
