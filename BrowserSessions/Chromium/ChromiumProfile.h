#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "BrowserSessions/Chromium/BrowserRun.h"
#include "BrowserSessions/LoggedSession.h"

namespace BrowserSessions {

/// What a running browser of the Chromium family has open with the profile in a folder, as it was a few seconds ago;
/// see `chromiumSession`. Fails if the profile has no session log, or none of this run if that is given, as shortly
/// after the browser's start; also if the current log cannot be read or understood, is not complete, or is kept
/// encrypted: an older log does not stand in for it.
std::expected<LoggedSession, std::string> chromiumProfileSession(const std::filesystem::path& profile,
                                                                 const std::optional<BrowserRun>& run = std::nullopt);

/// The numbers of the windows that the profile has of web applications, which have a log of their own. None where that
/// cannot be read.
std::vector<std::int32_t> chromiumApplicationWindows(const std::filesystem::path& profile);

}  // namespace BrowserSessions
