#include "Companions/Browser/Host/NativeMessages.h"

#include <cerrno>
#include <cstdint>
#include <cstring>

#include <unistd.h>

namespace BrowserCompanion {

namespace {

constexpr std::size_t headLength = sizeof(std::uint32_t);

}  // namespace

std::expected<std::optional<std::string>, std::string> MessageReader::next() {
  const std::string_view rest = std::string_view(bytes_).substr(taken_);
  if (rest.size() < headLength)
    return std::nullopt;
  std::uint32_t length = 0;
  std::memcpy(&length, rest.data(), headLength);
  if (length > longestMessage)
    return std::unexpected("The browser sends a message of " + std::to_string(length) + " bytes.");
  if (rest.size() < headLength + length)
    return std::nullopt;
  std::string message(rest.substr(headLength, length));
  taken_ += headLength + length;
  // What was taken is dropped once it is most of the text, so that each byte is moved once at most.
  if (taken_ > bytes_.size() / 2) {
    bytes_.erase(0, taken_);
    bytes_.shrink_to_fit();
    taken_ = 0;
  }
  return message;
}

bool writeMessage(int file, std::string_view message) {
  const auto length = static_cast<std::uint32_t>(message.size());
  std::string bytes(headLength, '\0');
  std::memcpy(bytes.data(), &length, headLength);
  bytes += message;
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const ssize_t written = write(file, rest.data(), rest.size());
    if (written < 0 && errno == EINTR)
      continue;
    if (written <= 0)
      return false;
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace BrowserCompanion
