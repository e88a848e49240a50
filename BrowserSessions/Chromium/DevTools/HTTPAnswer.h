#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "BrowserSessions/Chromium/DevTools/LocalConnection.h"

namespace BrowserSessions {

/// The content of the HTTP answer that comes next over the connection. Null if the answer is no successful one, does
/// not say how long its content is, has a head or a content of more than `maximumSize` bytes, or ends before its end.
std::optional<std::string> readHTTPContent(LocalConnection& connection, std::size_t maximumSize);

}  // namespace BrowserSessions
