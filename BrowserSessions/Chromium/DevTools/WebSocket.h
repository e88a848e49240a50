#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "BrowserSessions/Chromium/DevTools/LocalConnection.h"

namespace BrowserSessions {

/// The client of a WebSocket (RFC 6455) to a program on this machine, for text messages.
class WebSocket {
 public:
  using Deadline = LocalConnection::Deadline;

  /// Opens the WebSocket that the program on this port has at a path; `nullopt` if there is none.
  static std::optional<WebSocket> open(std::uint16_t port, std::string_view path, Deadline deadline);

  /// The same, over a connection to the program on this port.
  static std::optional<WebSocket> open(LocalConnection connection, std::uint16_t port, std::string_view path);

  /// The deadline for every later read and write.
  void setDeadline(Deadline deadline) { connection_.setDeadline(deadline); }

  /// The port of this end; 0 if it is unknown.
  [[nodiscard]] std::uint16_t localPort() const { return connection_.localPort(); }

  /// Sends a message. Returns whether that succeeded before the deadline.
  bool send(std::string_view message);

  /// The next message. `nullopt` if none comes before the deadline, or if the server closes the WebSocket or its
  /// connection, violates the protocol, or sends something other than text or more than 64 MiB.
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
