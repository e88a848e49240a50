#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "DesktopSupport/System/GLibHandles.h"

namespace BrowserSessions {

/// A TCP connection to a program on this machine. Nothing is read or written any more once the deadline has passed, or
/// the program has ended the connection.
class LocalConnection {
 public:
  using Deadline = std::chrono::steady_clock::time_point;

  /// Connects to the program that listens on this port; none where there is none.
  static std::optional<LocalConnection> open(std::uint16_t port, Deadline deadline);

  /// Takes over a stream socket whose other end is the program's.
  LocalConnection(DesktopSupport::ObjectHandle<GSocket> socket, Deadline deadline);

  void setDeadline(Deadline deadline) { deadline_ = deadline; }

  /// The port of this end; 0 if it cannot be told.
  [[nodiscard]] std::uint16_t localPort() const;

  /// Writes all of the bytes; false where that could not be done.
  bool write(std::string_view bytes);
  /// The next bytes, as many as said.
  std::optional<std::string> read(std::size_t count);
  /// The next bytes up to and with `end`; none where they are more than `maximum`.
  std::optional<std::string> readTo(std::string_view end, std::size_t maximum);

 private:
  bool connect(std::uint16_t port);
  bool await(GIOCondition condition);
  bool readMore();
  std::string take(std::size_t count);

  DesktopSupport::ObjectHandle<GSocket> socket_;
  Deadline deadline_;
  /// What has come, of which so many bytes have been taken.
  std::string bytes_;
  std::size_t taken_ = 0;
};

}  // namespace BrowserSessions
