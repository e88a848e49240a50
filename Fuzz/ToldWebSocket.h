#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "BrowserSessions/Chromium/DevTools/WebSocket.h"
#include "Fuzz/ToldConnection.h"

namespace Fuzz {

/// Opens a WebSocket over the connection. Its key is the same each time, so that the server's answer to it can be told
/// before it is asked for.
std::optional<BrowserSessions::WebSocket> openToldWebSocket(ToldConnection& connection);

/// The text with the right answer to the key in place of the first mark "{accept}".
std::string withAcceptance(std::string_view text);

/// A server's answer by which the WebSocket is opened.
std::string webSocketHead();

}  // namespace Fuzz
