#pragma once

#include <cstdint>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "BrowserSessions/BrowserSession.h"
#include "BrowserSessions/Chromium/DevTools/WebSocket.h"

namespace BrowserSessions {

/// A tab that the DevTools list.
struct DevToolsTab {
  /// The number of its window, the same as in the session log.
  std::int32_t window = 0;
  /// Its index in the tab strip.
  std::int32_t index = 0;
  /// Whether its window shows it.
  bool isShown = false;
  /// An opaque name for its profile, or for the private windows of a profile.
  std::string profile = {};
  BrowserTab page = {};

  bool operator==(const DevToolsTab&) const = default;
};

/// What a browser of the Chromium family has open at this moment, private windows included.
struct DevToolsSession {
  std::vector<DevToolsTab> tabs;
  /// The profile that was used last.
  std::string mainProfile;

  bool operator==(const DevToolsSession&) const = default;
};

/// What the DevTools list of the browser that runs in this process with this user data folder: the tabs of all windows,
/// also of pop-ups and web applications, but not of the developer tools. Changes nothing in the browser. `nullopt` if
/// the DevTools cannot be used from outside (see `connectDevTools`), give an unexpected answer, or belong to an older
/// browser, which does not tell the order of the tabs; this takes half a second at most. Fails with a sentence if
/// another program has their port.
std::expected<std::optional<DevToolsSession>, std::string> devToolsSession(const std::filesystem::path& userData,
                                                                           pid_t process);

/// The same, over a WebSocket for the browser as a whole. The socket's deadline must be set.
std::optional<DevToolsSession> devToolsSession(WebSocket& devTools);

}  // namespace BrowserSessions
