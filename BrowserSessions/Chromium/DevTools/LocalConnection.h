#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "DesktopSupport/System/FileDescriptor.h"

namespace BrowserSessions {

/// A TCP connection to a program on this machine. Reads and writes fail after the deadline, and after the program has
/// closed the connection.
class LocalConnection {
 public:
  using Deadline = std::chrono::steady_clock::time_point;

  /// Connects to the program that listens on this port; `nullopt` if there is none.
  static std::optional<LocalConnection> open(std::uint16_t port, Deadline deadline);

  /// Takes over a stream socket that is connected to the program.
  LocalConnection(std::unique_ptr<DesktopSupport::FileDescriptor> socket, Deadline deadline);

  void setDeadline(Deadline deadline) { deadline_ = deadline; }

  /// The port of this end; 0 if it is unknown.
  [[nodiscard]] std::uint16_t localPort() const;

  /// Writes all of the bytes. Returns whether that succeeded.
  bool write(std::string_view bytes);
  /// The next `count` bytes.
  std::optional<std::string> read(std::size_t count);
  /// The next bytes up to and including `end`; `nullopt` if these are more than `maximum`.
  std::optional<std::string> readTo(std::string_view end, std::size_t maximum);

 private:
  bool connect(std::uint16_t port);
  bool await(short events);
  bool readMore();
  std::string take(std::size_t count);

  std::unique_ptr<DesktopSupport::FileDescriptor> socket_;
  Deadline deadline_;
  /// The bytes received, the first `taken_` of which have been returned.
  std::string bytes_;
  std::size_t taken_ = 0;
};

/// The content of the HTTP answer that comes next over the connection. `nullopt` if the answer is not a successful one,
/// does not tell the length of its content, has a head or a content of more than `maximumSize` bytes, or is incomplete.
std::optional<std::string> readHTTPContent(LocalConnection& connection, std::size_t maximumSize);

}  // namespace BrowserSessions
