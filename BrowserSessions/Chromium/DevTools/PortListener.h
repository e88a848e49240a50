#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace BrowserSessions {

/// One end of a TCP connection, or a socket that listens for them, as the kernel's tables have it.
struct TCPSocket {
  /// Whether it accepts connections to 127.0.0.1, or is the end of one from and to there.
  bool isLocal = false;
  bool isListening = false;
  std::uint16_t port = 0;
  /// The port of the other end; 0 if it listens.
  std::uint16_t remotePort = 0;
  uid_t user = 0;
  /// The number of the socket's file; 0 if no program has it, as for a connection that has not been accepted.
  std::uint64_t inode = 0;

  bool operator==(const TCPSocket&) const = default;
};

/// The sockets that listen or are connected, given the text of /proc/net/tcp or /proc/net/tcp6. Leaves out lines that
/// are not as they must be.
std::vector<TCPSocket> tcpSockets(std::string_view table);

/// Whether it is a certain process of this user that is talked to on a port of this machine. Any user may listen on a
/// port that another program has given up.
class PortListener {
 public:
  /// `processes` is where the system tells about processes.
  explicit PortListener(pid_t process, std::filesystem::path processes = "/proc")
      : process_(process), processes_(std::move(processes)) {}

  /// Nobody, the process alone, or somebody else, be it beside the process.
  enum class Owner { none, process, other };

  /// Who listens for connections to this port of 127.0.0.1.
  [[nodiscard]] Owner listener(std::uint16_t port) const;

  /// Who has accepted the connection to `port` from `clientPort`, both of 127.0.0.1; `none` if it has ended. While
  /// nobody has accepted it, this is somebody else.
  [[nodiscard]] Owner accepter(std::uint16_t port, std::uint16_t clientPort) const;

 private:
  [[nodiscard]] Owner owner(const std::vector<TCPSocket>& sockets) const;

  pid_t process_;
  std::filesystem::path processes_;
};

}  // namespace BrowserSessions
