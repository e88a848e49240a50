#pragma once

#include <filesystem>
#include <optional>

#include "BrowserSessions/LiveSession.h"
#include "BrowserSessions/WebSocket.h"

namespace BrowserSessions {

/// What the running browser with this user data folder has open, as its DevTools tell: pop-ups and the windows of web
/// applications included, the windows of the developer tools not. Nothing in the browser changes by it. None where the
/// DevTools cannot be used from outside (see `connectDevTools`), answer something else, or are of an older browser, in
/// which they don't tell the order of the tabs; this takes half a second at most.
std::optional<LiveSession> devToolsSession(const std::filesystem::path& userData);

/// The same, asked over a WebSocket for the browser as a whole whose deadline is set.
std::optional<LiveSession> devToolsSession(WebSocket& devTools);

}  // namespace BrowserSessions
