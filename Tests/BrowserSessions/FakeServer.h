#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace BrowserSessions {

/// A server on a port of this machine, on a thread of its own. It accepts one connection after the other, and passes
/// each to the test's handler.
class FakeServer {
 public:
  /// The server's end of a connection. Reads return fewer bytes if the client has gone.
  class Connection {
   public:
    explicit Connection(int socket) : socket_(socket) {}

    [[nodiscard]] std::string read(std::size_t count) const {
      std::string bytes(count, '\0');
      const ssize_t got = count == 0 ? 0 : recv(socket_, bytes.data(), count, MSG_WAITALL);
      bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
      return bytes;
    }

    [[nodiscard]] std::string readTo(std::string_view end) const {
      std::string bytes;
      while (!bytes.ends_with(end)) {
        const std::string byte = read(1);
        if (byte.empty())
          break;
        bytes += byte;
      }
      return bytes;
    }

    /// Returns whether the client took the bytes.
    bool write(std::string_view bytes) const {  // NOLINT(modernize-use-nodiscard): of interest to few
      while (!bytes.empty()) {
        const ssize_t count = send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0)
          return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
      }
      return true;
    }

    /// Waits until the client goes.
    void awaitEnd() const {
      while (!read(1).empty()) {
      }
    }

   private:
    int socket_;
  };

  using Handler = std::function<void(const Connection&)>;

  /// Serves the connections to a listening socket, and closes it in the end.
  explicit FakeServer(Handler handler, int listener = listenOnAnyPort())
      : handler_(std::move(handler)), listener_(listener), port_(portOf(listener)) {
    thread_ = std::jthread([this] { serve(); });
  }
  FakeServer(const FakeServer&) = delete;
  FakeServer& operator=(const FakeServer&) = delete;
  ~FakeServer() {
    shutdown(listener_, SHUT_RDWR);
    if (const int current = current_; current >= 0)
      shutdown(current, SHUT_RDWR);
    thread_.join();
    close(listener_);
  }

  [[nodiscard]] std::uint16_t port() const { return port_; }

  /// A new socket that listens on a port of 127.0.0.1.
  static int listenOnAnyPort() {
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0 || listen(listener, 16) != 0)
      throw std::runtime_error("no port for a server");
    return listener;
  }

  /// The port of this end of a socket, IPv4 or IPv6.
  static std::uint16_t portOf(int socket) {
    sockaddr_in6 address = {};  // has the port where sockaddr_in has it
    socklen_t size = sizeof(address);
    if (getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0)
      throw std::runtime_error("a socket without a port");
    return ntohs(address.sin6_port);
  }

 private:
  void serve() {
    for (int client = accept(listener_, nullptr, nullptr); client >= 0; client = accept(listener_, nullptr, nullptr)) {
      current_ = client;
      const int atOnce = 1;
      setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof(atOnce));
      handler_(Connection(client));
      current_ = -1;
      close(client);
    }
  }

  Handler handler_;
  int listener_;
  std::uint16_t port_ = 0;
  std::atomic<int> current_ = -1;
  std::jthread thread_;
};

/// A port of this machine on which nobody listens.
inline std::uint16_t deadPort() {
  return FakeServer([](const FakeServer::Connection&) {}).port();
}

}  // namespace BrowserSessions
