#include <cstdint>
#include <string>

#include "BrowserSessions/Chromium/DevTools/WebSocket.h"
#include "Fuzz/Target.h"
#include "Fuzz/ToldConnection.h"
#include "Fuzz/ToldWebSocket.h"
#include "Tests/BrowserSessions/FakeWebSocket.h"

namespace {

using BrowserSessions::FakeWebSocket;
using Fuzz::require;

// The client answers each ping, and its answers must fit into the socket's buffer.
constexpr std::size_t longestInput = 256;

// Checks what the client sent after its request: a masked frame for each ping and for the end.
void requireSoundFrames(std::string_view frames, std::string_view told) {
  constexpr std::size_t headSize = 2;
  constexpr std::size_t maskSize = 4;
  constexpr auto maskedBit = '\x80';
  constexpr std::size_t longestPayload = 125;
  while (!frames.empty()) {
    require(frames.starts_with('\x8A') || frames.starts_with('\x88'), "The client sends only pongs and the end.");
    const std::size_t size = frames.size() > 1 ? static_cast<unsigned char>(frames[1] ^ maskedBit) : SIZE_MAX;
    require(size <= longestPayload && frames.size() >= headSize + maskSize + size, "The client masks short answers.");
    const std::string_view mask = frames.substr(headSize, maskSize);
    std::string payload(frames.substr(headSize + maskSize, size));
    for (std::size_t place = 0; place < size; ++place)
      payload[place] = static_cast<char>(payload[place] ^ mask[place % maskSize]);
    require(told.contains(payload), "It answers with the bytes that it received.");
    frames.remove_prefix(headSize + maskSize + size);
  }
}

void hear(const std::string& told) {
  Fuzz::ToldConnection connection(told);
  std::size_t size = 0;
  if (auto socket = Fuzz::openToldWebSocket(connection))
    while (const auto message = socket->receive())
      size += message->size();
  require(size <= told.size(), "The messages are no longer than what the server sent.");
  const std::string heard = connection.heard();
  const auto requestEnd = heard.find("\r\n\r\n");
  require(heard.starts_with("GET /path HTTP/1.1\r\n") && requestEnd != std::string::npos, "The client asks first.");
  requireSoundFrames(std::string_view(heard).substr(requestEnd + 4), told);
}

void requireSameMessage(std::string_view text) {
  const auto half = text.size() / 2;
  const std::string frames = FakeWebSocket::frame(FakeWebSocket::text, text.substr(0, half), false) +
                             FakeWebSocket::frame(FakeWebSocket::ping, text.substr(0, text.size() % 126)) +
                             FakeWebSocket::frame(FakeWebSocket::continuation, text.substr(half));
  Fuzz::ToldConnection connection(Fuzz::webSocketHead() + frames);
  auto socket = Fuzz::openToldWebSocket(connection);
  require(socket && socket->receive() == text, "A message arrives as it was sent.");
}

}  // namespace

// The input is what a server sends: its answer to the client's request and the rest. "{accept}" in it is replaced with
// the right answer to the client's key.
void Fuzz::run(std::string_view input) {
  const std::string_view used = input.substr(0, longestInput);
  hear(Fuzz::withAcceptance(used));
  requireSameMessage(used);
}
