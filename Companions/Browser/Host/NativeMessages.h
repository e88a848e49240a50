#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <string>
#include <string_view>

namespace BrowserCompanion {

/// The length in bytes of the longest message that is taken. The extension's messages are shorter.
inline constexpr std::size_t longestMessage = 8 << 20;

/// Divides what a browser writes to a native messaging host into messages. Each is preceded by its length, four bytes
/// in the machine's order.
class MessageReader {
 public:
  /// Adds bytes that the browser has written.
  void add(std::string_view bytes) { bytes_ += bytes; }

  /// Takes the next message; `nullopt` if it is not complete yet. Fails with a sentence if it is longer than
  /// `longestMessage`: then nothing more can be read.
  std::expected<std::optional<std::string>, std::string> next();

 private:
  std::string bytes_;
  /// How many of the bytes were taken.
  std::size_t taken_ = 0;
};

/// Writes a message to the browser at this file descriptor. Returns whether that succeeded.
bool writeMessage(int file, std::string_view message);

}  // namespace BrowserCompanion
