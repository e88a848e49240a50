#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>

#include <sys/types.h>

#include "BrowserSessions/Chromium/DevTools/WebSocket.h"

namespace BrowserSessions {

/// Where a browser of the Chromium family lets its DevTools be used from outside: on a port of this machine, with
/// --remote-debugging-port.
struct DevToolsPort {
  std::uint16_t port = 0;
  /// Of the WebSocket for the browser as a whole, different each time that the browser is started.
  std::string path;

  bool operator==(const DevToolsPort&) const = default;
};

/// What the browser with this user data folder has noted there; none where it has not. The note may be of a browser
/// that has crashed.
std::optional<DevToolsPort> devToolsPort(const std::filesystem::path& userData);

/// Connects to the DevTools of the browser that runs in this process. `nullopt` if no program answers on the port until
/// the deadline, the one that does is not the browser that the note is of, or it would ask the user for permission
/// first. Fails with a sentence if another process listens on the port, which is not asked for anything, or has
/// accepted the connection.
std::expected<std::optional<WebSocket>, std::string> connectDevTools(const DevToolsPort& devTools, pid_t process,
                                                                     WebSocket::Deadline deadline);

}  // namespace BrowserSessions
