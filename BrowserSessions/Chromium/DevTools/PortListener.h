#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace BrowserSessions {

/// A TCP socket in the kernel's tables: one end of a connection, or a socket that listens for connections.
struct TCPSocket {
  /// Whether it accepts connections to 127.0.0.1, or is one end of a connection within 127.0.0.1.
  bool isLocal = false;
  bool isListening = false;
  std::uint16_t port = 0;
  /// The port of the other end; 0 if it listens.
  std::uint16_t remotePort = 0;
  uid_t user = 0;
  /// The number of the socket's file; 0 if no program has it, as for a connection that is not accepted yet.
  std::uint64_t inode = 0;

  bool operator==(const TCPSocket&) const = default;
};

/// The sockets that listen or are connected, given the text of /proc/net/tcp or /proc/net/tcp6. Ignores malformed
/// lines.
std::vector<TCPSocket> tcpSockets(std::string_view table);

/// Tells whether it is a certain process of this user that has a port of this machine. Any user may listen on a port
/// that another program has given up.
class PortListener {
 public:
  /// `processes` is where /proc is mounted.
  explicit PortListener(pid_t process, std::filesystem::path processes = "/proc")
      : process_(process), processes_(std::move(processes)) {}

  /// Nobody, only the process, or somebody else, possibly together with the process.
  enum class Owner { none, process, other };

  /// Who listens on this port of 127.0.0.1.
  [[nodiscard]] Owner listener(std::uint16_t port) const;

  /// Who has accepted the connection from `clientPort` to `port`, both on 127.0.0.1; `none` if it has ended. Until it
  /// is accepted, this is `other`.
  [[nodiscard]] Owner accepter(std::uint16_t port, std::uint16_t clientPort) const;

 private:
  [[nodiscard]] Owner owner(const std::vector<TCPSocket>& sockets) const;

  pid_t process_;
  std::filesystem::path processes_;
};

}  // namespace BrowserSessions
