#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "BrowserSessions/Chromium/DevTools/LocalConnection.h"

namespace BrowserSessions {

/// The client's end of a WebSocket (RFC 6455) to a program on this machine, for messages of text.
class WebSocket {
 public:
  using Deadline = LocalConnection::Deadline;

  /// Opens the WebSocket that the program on this port has at a path; none where it has none.
  static std::optional<WebSocket> open(std::uint16_t port, std::string_view path, Deadline deadline);

  /// Opens the WebSocket at a path over a connection to the program on this port; none where it has none.
  static std::optional<WebSocket> open(LocalConnection connection, std::uint16_t port, std::string_view path);

  /// Until then must happen whatever is asked for from now on.
  void setDeadline(Deadline deadline) { connection_.setDeadline(deadline); }

  /// The port of this end; 0 if it cannot be told.
  [[nodiscard]] std::uint16_t localPort() const { return connection_.localPort(); }

  /// Sends a message; false where the other side has gone, or takes it too slowly.
  bool send(std::string_view message);

  /// The next message. None where none comes until the deadline, the other side closes the WebSocket or goes, breaks
  /// the protocol, or sends something else than text or more than 64 MiB.
  std::optional<std::string> receive();

 private:
  enum Opcode : std::uint8_t { continuation = 0, text = 1, close = 8, ping = 9, pong = 10 };

  struct Frame {
    Opcode opcode = text;
    bool isLast = true;
    std::string payload;
  };

  explicit WebSocket(LocalConnection connection) : connection_(std::move(connection)) {}
  bool shakeHands(std::uint16_t port, std::string_view path);
  bool sendFrame(Opcode opcode, std::string_view payload);
  std::optional<Frame> receiveFrame(std::size_t maximumSize);
  std::optional<std::uint64_t> receiveSize(std::uint8_t sizeByte);
  bool answerControl(const Frame& frame);

  LocalConnection connection_;
};

}  // namespace BrowserSessions
