#include "Fuzz/ToldWebSocket.h"

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/BrowserSessions/FakeWebSocket.h"

namespace Fuzz {

namespace {

constexpr std::uint16_t port = 1;
constexpr std::string_view mark = "{accept}";

// The answer to the key, computed from a client's request.
std::string acceptance() {
  ToldConnection connection("");
  openToldWebSocket(connection);
  return BrowserSessions::FakeWebSocket::acceptance(connection.heard());
}

}  // namespace

std::optional<BrowserSessions::WebSocket> openToldWebSocket(ToldConnection& connection) {
  g_random_set_seed(1);
  return BrowserSessions::WebSocket::open(connection.takeClient(), port, "/path");
}

std::string withAcceptance(std::string_view text) {
  static const std::string answer = acceptance();
  std::string answered(text);
  if (const auto place = answered.find(mark); place != std::string::npos)
    answered.replace(place, mark.size(), answer);
  return answered;
}

std::string webSocketHead() {
  return withAcceptance("HTTP/1.1 101 Switching Protocols\r\nSec-WebSocket-Accept: {accept}\r\n\r\n");
}

}  // namespace Fuzz
