#pragma once

#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// What a running browser of the Chromium family has open, all of its profiles taken together, given its user data
/// folder: the normal windows that are not private. It is as at this moment where the browser's DevTools can be used
/// from outside, otherwise as its session logs had it a few seconds ago, with titles from its history where they lack
/// them, then from its windows, else the names that the browser shows for pages without a title. `titles` are those of
/// its windows in the order in which they were opened, as far as they are known. A profile whose session cannot be read
/// is left out and is among the problems, and so are tabs whose addresses are too long for the logs; fails, with the
/// first one's sentence, where no profile can be read. If the browser's process is given, what an earlier one has left
/// behind does not count; else its DevTools are not asked, as nobody would know whose they are.
std::expected<SessionReading, std::string> chromiumUserDataSession(const std::filesystem::path& userData,
                                                                   std::optional<pid_t> process = std::nullopt,
                                                                   const std::vector<std::string>& titles = {});

}  // namespace BrowserSessions
