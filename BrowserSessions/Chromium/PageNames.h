#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "BrowserSessions/Chromium/LoggedSession.h"

namespace BrowserSessions {

/// The title that a browser of the Chromium family shows for a page without one: the name of a file, else the address
/// without "http://" and without escapes that it does not need.
std::string chromiumPageName(std::string_view url);

/// Gives the shown tab of each window the title of that window. `titles` are those of the browser's windows in the
/// order in which they were opened. A tab keeps a title that it has unless another tab has the same address, since a
/// profile's history has one title for each address. Does nothing if the titles may belong to other windows, such as
/// private ones: if there are more or fewer titles than windows, or one of them differs from a title that a tab keeps.
void addWindowTitles(std::vector<ChromiumWindow>& windows, const std::vector<std::string>& titles);

/// Gives each tab without a title the name that the browser shows for its page.
void addChromiumNames(std::vector<ChromiumWindow>& windows);

}  // namespace BrowserSessions
