#pragma once

#include <expected>
#include <filesystem>
#include <string>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// What the running GNOME Web with this profile folder has open, the window that was used last first; see `runningWeb`.
/// GNOME Web saves it a second after a tab was opened, loaded, moved or closed. It takes notice of other changes, such
/// as titles and addresses that a page's scripts change and the order of windows, when it does that the next time. It
/// keeps no file while it has no window; private windows and pages made by scripts (blob:, data:) are never saved.
/// Where the user has set that nothing is restored after an ordinary exit, newer versions save pinned tabs only, and an
/// overview page in place of the others. Fails with a sentence that names the file where that cannot be read.
std::expected<BrowserSession, std::string> webSession(const std::filesystem::path& profile);

}  // namespace BrowserSessions
