#include "Fuzz/ToldConnection.h"

#include <array>
#include <chrono>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

#include "Fuzz/Target.h"

namespace Fuzz {

namespace {

// Never reached.
constexpr auto patience = std::chrono::seconds(60);

}  // namespace

ToldConnection::ToldConnection(std::string_view told) {
  std::array<int, 2> ends = {-1, -1};
  require(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == 0, "Sockets can be made.");
  // As much as the system allows: each write takes far more room than its own size.
  const int bufferSize = 1 << 20;
  setsockopt(ends[0], SOL_SOCKET, SO_SNDBUF, &bufferSize, sizeof(bufferSize));
  client_ = std::make_unique<DesktopSupport::FileDescriptor>(ends[0]);
  server_ = ends[1];
  const ssize_t sent = send(server_, told.data(), told.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
  require(std::cmp_equal(sent, told.size()), "The server's bytes fit into the buffer.");
  shutdown(server_, SHUT_WR);
}

ToldConnection::~ToldConnection() {
  close(server_);
}

BrowserSessions::LocalConnection ToldConnection::takeClient() {
  return {std::move(client_), std::chrono::steady_clock::now() + patience};
}

std::string ToldConnection::heard() const {
  std::string bytes;
  std::array<char, 4096> piece = {};
  while (const ssize_t count = recv(server_, piece.data(), piece.size(), 0)) {
    require(count > 0, "The client's bytes can be read.");
    bytes.append(piece.data(), static_cast<std::size_t>(count));
  }
  return bytes;
}

}  // namespace Fuzz
