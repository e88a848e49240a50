#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <vector>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// What the running GNOME Web with this profile folder has open, the window that was used last first; see `runningWeb`.
/// GNOME Web saves it a second after a tab was opened, loaded, moved or closed. It takes notice of other changes, such
/// as titles and addresses that a page's scripts change and the order of windows, when it does that the next time. It
/// keeps no file while it has no window; private windows and pages made by scripts (blob:, data:) are never saved.
/// Where the user has set that nothing is restored after an ordinary exit, newer versions save pinned tabs only, and an
/// overview page in place of the others. Fails with a sentence that names the file where that cannot be read.
std::expected<BrowserSession, std::string> webSession(const std::filesystem::path& profile);

/// Whether GNOME Web has not saved this session since one of its windows came to show another page, given the titles of
/// its windows: no tab has the window's title. That lasts a second, and until the next change if a script has changed
/// the title; but while a tab shows the source of a page, or is at another address that GNOME Web cannot write, nothing
/// is saved at all.
bool isBehind(const BrowserSession& session, const std::vector<std::string>& windowTitles);

}  // namespace BrowserSessions
