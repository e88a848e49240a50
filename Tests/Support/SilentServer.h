#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include "DesktopSupport/System/FileDescriptor.h"

namespace TestSupport {

/// A server on this machine that accepts connections and never sends anything.
class SilentServer {
 public:
  SilentServer() : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (bind(socket_.number(), reinterpret_cast<const sockaddr*>(&address), length) != 0 ||
        listen(socket_.number(), 8) != 0 ||
        getsockname(socket_.number(), reinterpret_cast<sockaddr*>(&address), &length) != 0)
      throw std::runtime_error("no socket to listen at");
    port_ = ntohs(address.sin_port);
  }

  /// Its address, as "127.0.0.1:1234".
  [[nodiscard]] std::string address() const { return "127.0.0.1:" + std::to_string(port_); }

  [[nodiscard]] std::uint16_t port() const { return port_; }

  /// Whether there is a connection that has not been taken yet. Takes it.
  [[nodiscard]] bool takeConnection() const {
    const DesktopSupport::FileDescriptor connection(accept4(socket_.number(), nullptr, nullptr, SOCK_CLOEXEC));
    return connection.isOpen();
  }

 private:
  DesktopSupport::FileDescriptor socket_;
  std::uint16_t port_ = 0;
};

}  // namespace TestSupport
