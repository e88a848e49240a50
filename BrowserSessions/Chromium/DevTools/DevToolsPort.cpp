#include "BrowserSessions/Chromium/DevTools/DevToolsPort.h"

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <string_view>

#include "BrowserSessions/Chromium/DevTools/JSONFields.h"
#include "BrowserSessions/Chromium/DevTools/LocalConnection.h"
#include "BrowserSessions/Chromium/DevTools/PortListener.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using Owner = PortListener::Owner;

constexpr std::size_t maximumNoteSize = 1 << 10;
constexpr std::size_t maximumAnswerSize = 1 << 16;

// Whether the text can be put into a request as it is.
bool isPath(std::string_view text) {
  return text.starts_with("/devtools/browser/") &&
         std::ranges::all_of(text, [](char c) { return g_ascii_isalnum(c) || c == '/' || c == '-'; });
}

// The answer to the question for the browser's version. A browser answers it unless it asks the user for permission.
std::optional<std::string> version(std::uint16_t port, LocalConnection::Deadline deadline) {
  auto connection = LocalConnection::open(port, deadline);
  const std::string request =
      "GET /json/version HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(port) + "\r\nConnection: close\r\n\r\n";
  const bool isAsked = connection && connection->write(request);
  return isAsked ? readHTTPContent(*connection, maximumAnswerSize) : std::nullopt;
}

// It is not a failure if nobody has the port: a browser that crashes leaves its note.
std::expected<std::optional<WebSocket>, std::string> notConnected(Owner owner, std::uint16_t port) {
  if (owner == Owner::none)
    return std::nullopt;
  return std::unexpected("The browser's DevTools are not asked: another program has their port, " +
                         std::to_string(port) + '.');
}

}  // namespace

std::optional<DevToolsPort> devToolsPort(const std::filesystem::path& userData) {
  const std::string note = DesktopSupport::fileContents(userData / "DevToolsActivePort", maximumNoteSize).value_or("");
  const auto end = note.find('\n');
  const auto port = end != std::string::npos
                        ? DesktopSupport::parseNumber<std::uint16_t>(std::string_view(note).substr(0, end))
                        : std::nullopt;
  if (!port || *port == 0)
    return std::nullopt;
  std::string path = note.substr(end + 1);
  path.erase(std::min(path.find('\n'), path.size()));
  return isPath(path) ? std::optional(DevToolsPort{*port, std::move(path)}) : std::nullopt;
}

std::expected<std::optional<WebSocket>, std::string> connectDevTools(const DevToolsPort& devTools, pid_t process,
                                                                     WebSocket::Deadline deadline) {
  const PortListener browser(process);
  if (const auto listener = browser.listener(devTools.port); listener != Owner::process)
    return notConnected(listener, devTools.port);
  const auto answer = version(devTools.port, deadline);
  if (!answer)
    return std::nullopt;
  const auto about = nlohmann::json::parse(*answer, nullptr, /*allow_exceptions=*/false);
  if (!textField(about, "webSocketDebuggerUrl").ends_with(devTools.path))
    return std::nullopt;
  auto socket = WebSocket::open(devTools.port, devTools.path, deadline);
  if (!socket)
    return std::nullopt;
  // The browser may have given up the port meanwhile.
  if (const auto accepter = browser.accepter(devTools.port, socket->localPort()); accepter != Owner::process)
    return notConnected(accepter, devTools.port);
  return socket;
}

}  // namespace BrowserSessions
