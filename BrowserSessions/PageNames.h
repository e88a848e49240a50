#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "BrowserSessions/BrowserSession.h"
#include "BrowserSessions/LoggedSession.h"

namespace BrowserSessions {

/// What browsers of the Chromium family show as the title of a page that has none: the name of a file, else the
/// address without "http://" and without escapes where they aren't needed.
std::string chromiumPageName(std::string_view url);

/// What Firefox shows as the title of a page that has none: the address without its scheme.
std::string firefoxPageName(std::string_view url);

/// Gives each tab without a title the name that Firefox shows for it, and cuts titles (see
/// `DesktopSupport::shortened`). Firefox saves the address as the title of a page that has none.
void addFirefoxNames(BrowserSession& session);

/// Gives the tabs that windows show the titles of these windows, given the titles of the browser's windows in the order
/// in which they were opened. A tab that has a title keeps it unless another tab has the same address, as a profile's
/// history has one title for each address. Does nothing if the titles may be those of other windows, such as private
/// ones: if there are more or fewer of them than windows, or one differs from a title that is kept.
void addWindowTitles(std::vector<ChromiumWindow>& windows, const std::vector<std::string>& titles);

/// Gives each tab without a title the name that the browser shows for it.
void addChromiumNames(std::vector<ChromiumWindow>& windows);

}  // namespace BrowserSessions
