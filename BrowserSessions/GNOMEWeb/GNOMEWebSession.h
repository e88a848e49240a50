#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// The windows and tabs in the XML text of GNOME Web's session file. Leaves out windows without a tab. Fails with a
/// sentence if the text is not well-formed, is not a session, or has more windows and tabs than anybody has open.
std::expected<BrowserSession, std::string> gnomeWebState(std::string_view xml);

/// What the running GNOME Web with this profile folder has open, the window that was used last first; see
/// `runningGNOMEWeb`. `windowTitles` are the titles of its windows, which tell whether the session is out of date; that
/// becomes a problem of the reading.
///
/// GNOME Web saves a second after a tab was opened, loaded, moved or closed. Other changes, such as a title or address
/// that a script changes and the order of the windows, are only saved together with one of these. Without a window
/// there is no file. Private windows and pages made by scripts (blob:, data:) are never saved. If the user has chosen
/// that nothing is restored after an ordinary exit, newer versions save only pinned tabs, and an overview page in place
/// of the others. Fails with a sentence that names the file if that cannot be read.
SessionResult gnomeWebSession(const std::filesystem::path& profile, const std::vector<std::string>& windowTitles = {});

/// Whether GNOME Web has not saved this session since one of its windows showed another page: no tab has the title of
/// that window. This usually lasts a second; if a script has changed the title, until the next save. While a tab shows
/// the source of a page, or an address that GNOME Web cannot write, nothing is saved at all.
bool isOutOfDate(const BrowserSession& session, const std::vector<std::string>& windowTitles);

}  // namespace BrowserSessions
