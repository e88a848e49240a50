#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>

#include <sys/types.h>

#include "BrowserSessions/Chromium/DevTools/WebSocket.h"

namespace BrowserSessions {

/// The port of this machine on which a browser of the Chromium family offers its DevTools, if it was started with
/// --remote-debugging-port.
struct DevToolsPort {
  std::uint16_t port = 0;
  /// The path of the WebSocket for the browser as a whole. It is different after each start of the browser.
  std::string path;

  bool operator==(const DevToolsPort&) const = default;
};

/// The port that the browser has noted in this user data folder; `nullopt` if there is no note. The note may have been
/// left by a browser that crashed.
std::optional<DevToolsPort> devToolsPort(const std::filesystem::path& userData);

/// Connects to the DevTools of the browser that runs in this process. `nullopt` if no program answers on the port
/// before the deadline, if the browser that answers is not the one that wrote the note, or if it would first ask the
/// user for permission. Fails with a sentence if another process listens on the port, to which nothing is sent then, or
/// has accepted the connection.
std::expected<std::optional<WebSocket>, std::string> connectDevTools(const DevToolsPort& devTools, pid_t process,
                                                                     WebSocket::Deadline deadline);

}  // namespace BrowserSessions
