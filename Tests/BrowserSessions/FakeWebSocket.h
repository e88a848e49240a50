#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/BrowserSessions/FakeServer.h"

namespace BrowserSessions {

/// A server's end of a WebSocket, frame by frame.
class FakeWebSocket {
 public:
  struct Frame {
    std::uint8_t opcode = 0;
    std::string payload;
    bool isMasked = false;
  };

  static constexpr std::uint8_t continuation = 0;
  static constexpr std::uint8_t text = 1;
  static constexpr std::uint8_t binary = 2;
  static constexpr std::uint8_t close = 8;
  static constexpr std::uint8_t ping = 9;
  static constexpr std::uint8_t pong = 10;

  explicit FakeWebSocket(const FakeServer::Connection& connection) : connection_(connection) {}

  /// Reads the client's request and accepts it. Returns the request.
  std::string shakeHands() const {  // NOLINT(modernize-use-nodiscard): of interest to few
    std::string request = connection_.readTo("\r\n\r\n");
    connection_.write(
        "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
        "Sec-WebSocket-Accept: " +
        acceptance(request) + "\r\n\r\n");
    return request;
  }

  /// The answer that a server must give to the key in a request.
  static std::string acceptance(const std::string& request) {
    constexpr std::string_view field = "Sec-WebSocket-Key: ";
    const auto start = request.find(field) + field.size();
    const std::string answered =
        request.substr(start, request.find('\r', start) - start) + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";
    const DesktopSupport::CharsHandle hex(g_compute_checksum_for_string(G_CHECKSUM_SHA1, answered.c_str(), -1));
    std::string digest;
    for (const char* digit = hex.get(); *digit != '\0'; digit += 2)
      digest += static_cast<char>(16 * g_ascii_xdigit_value(digit[0]) + g_ascii_xdigit_value(digit[1]));
    const DesktopSupport::CharsHandle base64(
        g_base64_encode(reinterpret_cast<const guchar*>(digest.data()), digest.size()));
    return base64.get();
  }

  /// The bytes of a frame, with its size in the shortest form.
  static std::string frame(std::uint8_t opcode, std::string_view payload, bool isLast = true) {
    const std::size_t size = payload.size();
    std::string bytes = {static_cast<char>(opcode | (isLast ? 0x80 : 0))};
    if (size < 126)
      bytes += static_cast<char>(size);
    else
      bytes += size <= 0xFFFF ? '\x7E' + number(size, 2) : '\x7F' + number(size, 8);
    return bytes + std::string(payload);
  }

  static std::string number(std::uint64_t value, std::size_t size) {
    std::string bytes;
    while (size-- > 0)
      bytes += static_cast<char>(value >> (8 * size) & 0xFF);
    return bytes;
  }

  bool send(std::string_view message) const {  // NOLINT(modernize-use-nodiscard): of interest to few
    return connection_.write(frame(text, message));
  }

  /// The next frame of the client; an empty one with the opcode 0 if the client has gone.
  [[nodiscard]] Frame receive() const {
    const std::string head = connection_.read(2);
    if (head.size() < 2)
      return {};
    const bool isMasked = (head[1] & 0x80) != 0;
    std::uint64_t size = static_cast<std::uint8_t>(head[1]) & 0x7F;
    if (size >= 126)
      size = parsed(connection_.read(size == 126 ? 2 : 8));
    const std::string mask = isMasked ? connection_.read(4) : std::string(4, '\0');
    std::string payload = connection_.read(size);
    for (std::size_t position = 0; position < payload.size(); ++position)
      payload[position] = static_cast<char>(payload[position] ^ mask[position % 4]);
    return {static_cast<std::uint8_t>(head[0] & 0x0F), payload, isMasked};
  }

 private:
  static std::uint64_t parsed(const std::string& bytes) {
    std::uint64_t value = 0;
    for (const char byte : bytes)
      value = value << 8 | static_cast<std::uint8_t>(byte);
    return value;
  }

  FakeServer::Connection connection_;
};

}  // namespace BrowserSessions
