#include "BrowserSessions/Chromium/DevTools/WebSocket.h"

#include <array>
#include <utility>

#include "DesktopSupport/System/GLibHandles.h"

namespace BrowserSessions {

namespace {

constexpr std::size_t maximumHeadSize = 1 << 14;
constexpr std::size_t maximumMessageSize = 64 << 20;
constexpr std::size_t maximumControlSize = 125;

constexpr std::uint8_t lastBit = 0x80;
constexpr std::uint8_t opcodeBits = 0x0F;
constexpr std::uint8_t reservedBits = 0x70;
constexpr std::uint8_t maskedBit = 0x80;
// In place of a size, these announce that it follows in two bytes or in eight.
constexpr std::uint8_t size16 = 126;
constexpr std::uint8_t size64 = 127;

std::string base64(std::string_view bytes) {
  const DesktopSupport::CharsHandle text(g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size()));
  return text.get();
}

std::string bigEndian(std::uint64_t value, std::size_t size) {
  std::string bytes;
  while (size-- > 0)
    bytes += static_cast<char>(value >> (8 * size) & 0xFF);
  return bytes;
}

std::string randomKey() {
  std::string bytes;
  for (int word = 0; word < 4; ++word)
    bytes += bigEndian(g_random_int(), 4);
  return base64(bytes);
}

// The answer of a server that has understood the key.
std::string acceptance(const std::string& key) {
  const std::string text = key + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";
  const DesktopSupport::ChecksumHandle sum(g_checksum_new(G_CHECKSUM_SHA1));
  g_checksum_update(sum.get(), reinterpret_cast<const guchar*>(text.data()), std::ssize(text));
  std::array<guchar, 20> digest{};
  gsize size = digest.size();
  g_checksum_get_digest(sum.get(), digest.data(), &size);
  return base64({reinterpret_cast<const char*>(digest.data()), size});
}

std::string masked(std::string_view payload, std::string_view mask) {
  std::string bytes(payload);
  for (std::size_t position = 0; position < bytes.size(); ++position)
    bytes[position] = static_cast<char>(bytes[position] ^ mask[position % mask.size()]);
  return bytes;
}

std::string sizeField(std::size_t size) {
  if (size < size16)
    return bigEndian(maskedBit | size, 1);
  return size <= 0xFFFF ? bigEndian(maskedBit | size16, 1) + bigEndian(size, 2)
                        : bigEndian(maskedBit | size64, 1) + bigEndian(size, 8);
}

}  // namespace

std::optional<WebSocket> WebSocket::open(std::uint16_t port, std::string_view path, Deadline deadline) {
  auto connection = LocalConnection::open(port, deadline);
  return connection ? open(std::move(*connection), port, path) : std::nullopt;
}

std::optional<WebSocket> WebSocket::open(LocalConnection connection, std::uint16_t port, std::string_view path) {
  WebSocket socket(std::move(connection));
  return socket.shakeHands(port, path) ? std::optional(std::move(socket)) : std::nullopt;
}

bool WebSocket::shakeHands(std::uint16_t port, std::string_view path) {
  const std::string key = randomKey();
  const std::string request = "GET " + std::string(path) + " HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(port) +
                              "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n" +
                              "Sec-WebSocket-Key: " + key + "\r\n\r\n";
  const auto head = connection_.write(request) ? connection_.readTo("\r\n\r\n", maximumHeadSize) : std::nullopt;
  return head && head->starts_with("HTTP/1.1 101 ") && head->find(acceptance(key) + "\r\n") != std::string::npos;
}

bool WebSocket::send(std::string_view message) {
  return sendFrame(text, message);
}

bool WebSocket::sendFrame(Opcode opcode, std::string_view payload) {
  const std::string mask = bigEndian(g_random_int(), 4);
  const std::string head = bigEndian(lastBit | opcode, 1) + sizeField(payload.size()) + mask;
  return connection_.write(head + masked(payload, mask));
}

std::optional<std::string> WebSocket::receive() {
  std::string message;
  bool isBegun = false;
  while (auto frame = receiveFrame(maximumMessageSize - message.size())) {
    if (frame->opcode == close || frame->opcode == ping || frame->opcode == pong) {
      if (!answerControl(*frame))
        return std::nullopt;
      continue;
    }
    if (frame->opcode != (isBegun ? continuation : text))
      return std::nullopt;
    isBegun = true;
    message += frame->payload;
    if (frame->isLast)
      return message;
  }
  return std::nullopt;
}

// Whether messages may still come.
bool WebSocket::answerControl(const Frame& frame) {
  if (!frame.isLast || frame.payload.size() > maximumControlSize)
    return false;
  if (frame.opcode == pong)
    return true;
  const bool isAnswered = sendFrame(frame.opcode == ping ? pong : close, frame.payload);
  return isAnswered && frame.opcode == ping;
}

std::optional<WebSocket::Frame> WebSocket::receiveFrame(std::size_t maximumSize) {
  const auto head = connection_.read(2);
  if (!head)
    return std::nullopt;
  const auto first = static_cast<std::uint8_t>(head->front());
  const auto second = static_cast<std::uint8_t>(head->back());
  if ((first & reservedBits) != 0 || (second & maskedBit) != 0)
    return std::nullopt;
  const auto size = receiveSize(second);
  auto payload = size && *size <= maximumSize ? connection_.read(*size) : std::nullopt;
  if (!payload)
    return std::nullopt;
  return Frame{static_cast<Opcode>(first & opcodeBits), (first & lastBit) != 0, std::move(*payload)};
}

std::optional<std::uint64_t> WebSocket::receiveSize(std::uint8_t sizeByte) {
  if (sizeByte < size16)
    return sizeByte;
  const auto bytes = connection_.read(sizeByte == size16 ? 2 : 8);
  if (!bytes)
    return std::nullopt;
  std::uint64_t size = 0;
  for (const char byte : *bytes)
    size = size << 8 | static_cast<std::uint8_t>(byte);
  return size;
}

}  // namespace BrowserSessions
