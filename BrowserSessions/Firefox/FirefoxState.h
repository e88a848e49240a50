#pragma once

#include <expected>
#include <string>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// The windows and tabs that the JSON text of Firefox's session store tells of. A tab is at the page of its history at
/// which it was last, whether that was loaded again after a restart or not; one that has no history yet is at the
/// address that it is about to load. In the reading view the address is that of the page. Hidden tabs, private ones and
/// windows without a tab are left out. Fails with a sentence where the text is not JSON, is of a version that is not
/// known, or holds more than anybody has open. Texts are cut after some hundred thousand bytes.
std::expected<BrowserSession, std::string> firefoxState(std::string json);

}  // namespace BrowserSessions
