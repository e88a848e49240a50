#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include <sys/types.h>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// What the running Firefox with this profile folder has open, the window in front first; see `runningFirefoxes`. If
/// `process`, its process, is given and has a companion, this is its state now; a companion that cannot be asked is a
/// problem.
///
/// Otherwise it is what Firefox has saved, which it does with a delay: a closed tab after 2 to 15 seconds; a new page,
/// title or address usually after 17 seconds, sometimes after half a minute; and all of these up to an hour later while
/// nobody uses the computer. The order of the windows is updated only when something else is saved. Private windows are
/// never saved. If the last save cannot be read, the one before it is used. A save from before the profile was locked
/// comes from an earlier run that crashed, and is ignored. Fails with a sentence that names the file if there is no
/// usable save, as in the first seconds after Firefox's start, or if the user has made all windows private.
SessionResult firefoxSession(const std::filesystem::path& profile, std::optional<pid_t> process = std::nullopt);

/// The title that Firefox shows for a page without one: the address without its scheme.
std::string firefoxPageName(std::string_view url);

/// Gives each tab without a title the name that Firefox shows for it, and shortens titles (see
/// `DesktopSupport::shortened`). Firefox saves the address as the title of a page that has none.
void addFirefoxNames(BrowserSession& session);

}  // namespace BrowserSessions
