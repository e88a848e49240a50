#include "BrowserSessions/Chromium/DevTools/LocalConnection.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <utility>

#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::FileDescriptor;

// The size of the content according to the head of a successful answer.
std::optional<std::size_t> contentSize(std::string head) {
  std::ranges::transform(head, head.begin(), g_ascii_tolower);
  constexpr std::string_view field = "\r\ncontent-length:";
  const auto start = head.find(field);
  if (!head.starts_with("http/1.1 200 ") || start == std::string::npos)
    return std::nullopt;
  const std::string_view rest = std::string_view(head).substr(start + field.size());
  const auto digits = rest.find_first_not_of(" \t");
  const auto end = rest.find('\r');
  return digits < end ? DesktopSupport::parseNumber<std::size_t>(rest.substr(digits, end - digits)) : std::nullopt;
}

}  // namespace

std::optional<LocalConnection> LocalConnection::open(std::uint16_t port, Deadline deadline) {
  auto socket = std::make_unique<FileDescriptor>(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (!socket->isOpen())
    return std::nullopt;
  const int on = 1;
  setsockopt(socket->number(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  LocalConnection connection(std::move(socket), deadline);
  return connection.connect(port) ? std::optional(std::move(connection)) : std::nullopt;
}

LocalConnection::LocalConnection(std::unique_ptr<FileDescriptor> socket, Deadline deadline)
    : socket_(std::move(socket)), deadline_(deadline) {
  fcntl(socket_->number(), F_SETFL, O_NONBLOCK);
}

bool LocalConnection::connect(std::uint16_t port) {
  const sockaddr_in address = {
      .sin_family = AF_INET, .sin_port = htons(port), .sin_addr = {.s_addr = htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
  if (::connect(socket_->number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
    return true;
  int problem = errno;
  socklen_t size = sizeof problem;
  return problem == EINPROGRESS && await(POLLOUT) &&
         getsockopt(socket_->number(), SOL_SOCKET, SO_ERROR, &problem, &size) == 0 && problem == 0;
}

std::uint16_t LocalConnection::localPort() const {
  sockaddr_in address = {};
  socklen_t size = sizeof address;
  const bool isKnown = getsockname(socket_->number(), reinterpret_cast<sockaddr*>(&address), &size) == 0;
  return isKnown && address.sin_family == AF_INET ? ntohs(address.sin_port) : 0;
}

bool LocalConnection::await(short events) {
  pollfd descriptor = {.fd = socket_->number(), .events = events, .revents = 0};
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline_ - std::chrono::steady_clock::now());
    if (left.count() <= 0)
      return false;
    const int ready = poll(&descriptor, 1, static_cast<int>(std::min<std::int64_t>(left.count(), INT_MAX)));
    if (ready > 0 || (ready < 0 && errno != EINTR))
      return ready > 0;
  }
}

bool LocalConnection::write(std::string_view bytes) {
  while (!bytes.empty()) {
    if (!await(POLLOUT))
      return false;
    const ssize_t count = send(socket_->number(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count > 0)
      bytes.remove_prefix(static_cast<std::size_t>(count));
    else if (errno != EAGAIN && errno != EINTR)
      return false;
  }
  return true;
}

bool LocalConnection::readMore() {
  bytes_.erase(0, std::exchange(taken_, 0));
  while (await(POLLIN)) {
    std::array<char, 16384> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): recv fills it
    const ssize_t count = recv(socket_->number(), buffer.data(), buffer.size(), 0);
    if (count > 0)
      bytes_.append(buffer.data(), static_cast<std::size_t>(count));
    if (count >= 0 || (errno != EAGAIN && errno != EINTR))
      return count > 0;
  }
  return false;
}

std::string LocalConnection::take(std::size_t count) {
  std::string bytes = bytes_.substr(taken_, count);
  taken_ += count;
  return bytes;
}

std::optional<std::string> LocalConnection::read(std::size_t count) {
  while (bytes_.size() - taken_ < count)
    if (!readMore())
      return std::nullopt;
  return take(count);
}

std::optional<std::string> LocalConnection::readTo(std::string_view end, std::size_t maximum) {
  std::size_t position = std::string::npos;
  while ((position = bytes_.find(end, taken_)) == std::string::npos)
    if (bytes_.size() - taken_ > maximum || !readMore())
      return std::nullopt;
  const std::size_t count = position - taken_ + end.size();
  return count <= maximum ? std::optional(take(count)) : std::nullopt;
}

std::optional<std::string> readHTTPContent(LocalConnection& connection, std::size_t maximumSize) {
  const auto head = connection.readTo("\r\n\r\n", maximumSize);
  const auto size = head ? contentSize(*head) : std::nullopt;
  return size && *size <= maximumSize ? connection.read(*size) : std::nullopt;
}

}  // namespace BrowserSessions
