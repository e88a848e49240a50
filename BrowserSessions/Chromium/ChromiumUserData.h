#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// What a running browser of the Chromium family has open, given its user data folder: the normal, not private windows
/// of all its profiles.
///
/// If the browser has a companion in each of its profiles, or its DevTools can be used from outside, this is its state
/// now. Otherwise it is what the session logs of its profiles had a few seconds ago, except for those with a companion.
/// A title that is not in the logs comes from the profile's history, from the browser's windows, or is the name that
/// the browser shows for a page without a title. `titles` are those of its windows in the order in which they were
/// opened, as far as they are known.
///
/// A profile whose session cannot be read is left out and named among the problems, and so are tabs whose addresses are
/// too long for the logs. Fails with the first profile's sentence if no profile can be read. If `process`, the
/// browser's process, is given, what an earlier one has left is ignored. If not, neither
/// companions nor the DevTools are asked, since they may be another program's.
SessionResult chromiumUserDataSession(const std::filesystem::path& userData,
                                      std::optional<pid_t> process = std::nullopt,
                                      const std::vector<std::string>& titles = {});

}  // namespace BrowserSessions
