#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "BrowserSessions/Chromium/DevTools/WebSocket.h"
#include "Fuzz/ToldConnection.h"

namespace Fuzz {

/// Opens a WebSocket over the connection. Its key is always the same, so that the server can answer it in advance.
std::optional<BrowserSessions::WebSocket> openToldWebSocket(ToldConnection& connection);

/// The text with the right answer to the key in place of the first "{accept}".
std::string withAcceptance(std::string_view text);

/// The server's answer that opens the WebSocket.
std::string webSocketHead();

}  // namespace Fuzz
