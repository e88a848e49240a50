#pragma once

#include <expected>
#include <filesystem>
#include <optional>
#include <string>

#include <sys/types.h>

#include "BrowserSessions/Chromium/DevTools/LiveSession.h"
#include "BrowserSessions/Chromium/DevTools/WebSocket.h"

namespace BrowserSessions {

/// What the browser with this user data folder, which runs in this process, has open, as its DevTools tell: pop-ups and
/// the windows of web applications included, the windows of the developer tools not. Nothing in the browser changes by
/// it. None where the DevTools cannot be used from outside (see `connectDevTools`), answer something else, or are of an
/// older browser, in which they don't tell the order of the tabs; this takes half a second at most. Fails with a
/// sentence if another program has their port.
std::expected<std::optional<LiveSession>, std::string> devToolsSession(const std::filesystem::path& userData,
                                                                       pid_t process);

/// The same, asked over a WebSocket for the browser as a whole whose deadline is set.
std::optional<LiveSession> devToolsSession(WebSocket& devTools);

}  // namespace BrowserSessions
