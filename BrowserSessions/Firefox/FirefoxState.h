#pragma once

#include <expected>
#include <string>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// The windows and tabs in the JSON text of Firefox's session store. A tab shows the current page of its history, even
/// if that has not been loaded since a restart; a tab without a history shows the address that it is about to load. In
/// the reader view the address is that of the page. Leaves out hidden and private tabs, and windows without a tab. Cuts
/// titles and addresses after some hundred thousand bytes. Fails with a sentence if the text is not JSON, has an
/// unknown version, or has more windows, tabs and pages than anybody has open.
std::expected<BrowserSession, std::string> firefoxState(std::string json);

/// The address of the page that the reader view with this address shows; any other address as it is.
std::string withoutReadingView(std::string address);

}  // namespace BrowserSessions
