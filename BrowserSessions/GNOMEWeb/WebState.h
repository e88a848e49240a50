#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// The windows and tabs that the XML text of GNOME Web's session file tells of. Windows without a tab are left out.
/// Fails with a sentence where the text is not well-formed, is not of a session, or holds more than anybody has open.
std::expected<BrowserSession, std::string> webState(std::string_view xml);

}  // namespace BrowserSessions
