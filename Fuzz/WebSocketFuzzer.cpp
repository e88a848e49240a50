#include <string>

#include "BrowserSessions/WebSocket.h"
#include "Fuzz/Target.h"
#include "Fuzz/ToldConnection.h"
#include "Fuzz/ToldWebSocket.h"
#include "Tests/BrowserSessions/FakeWebSocket.h"

namespace {

using BrowserSessions::FakeWebSocket;
using Fuzz::require;

// The client answers each ping, and all of its answers must fit into the socket's buffer.
constexpr std::size_t longestInput = 256;

// What the client has sent: its answers to what it was told, frame by frame.
void requireSoundFrames(const Fuzz::ToldConnection& connection, std::string_view told) {
  constexpr std::size_t longestControl = 125;
  const FakeWebSocket heard(connection.server());
  for (auto frame = heard.receive(); frame.opcode != FakeWebSocket::continuation; frame = heard.receive()) {
    require(frame.isMasked, "The client masks what it sends.");
    require(frame.opcode == FakeWebSocket::pong || frame.opcode == FakeWebSocket::close, "The client only answers.");
    require(frame.payload.size() <= longestControl && told.contains(frame.payload),
            "It answers with what it was told.");
  }
}

void hear(const std::string& told) {
  Fuzz::ToldConnection connection(told);
  std::size_t size = 0;
  if (auto socket = Fuzz::openToldWebSocket(connection))
    while (const auto message = socket->receive())
      size += message->size();
  require(size <= told.size(), "There is no more in the messages than was told.");
  require(connection.server().readTo("\r\n\r\n").starts_with("GET /path HTTP/1.1\r\n"), "The client asks first.");
  requireSoundFrames(connection, told);
}

void requireSameMessage(std::string_view text) {
  const auto half = text.size() / 2;
  const std::string frames = FakeWebSocket::frame(FakeWebSocket::text, text.substr(0, half), false) +
                             FakeWebSocket::frame(FakeWebSocket::ping, text.substr(0, text.size() % 126)) +
                             FakeWebSocket::frame(FakeWebSocket::continuation, text.substr(half));
  Fuzz::ToldConnection connection(Fuzz::webSocketHead() + frames);
  auto socket = Fuzz::openToldWebSocket(connection);
  require(socket && socket->receive() == text, "A message comes as it was sent.");
}

}  // namespace

// The input is what a server sends: its answer to the client's request and what follows. The mark "{accept}" in it
// becomes the right answer to the client's key.
void Fuzz::run(std::string_view input) {
  const std::string_view used = input.substr(0, longestInput);
  hear(Fuzz::withAcceptance(used));
  requireSameMessage(used);
}
