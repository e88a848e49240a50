#include "BrowserSessions/Chromium/DevTools/LocalConnection.h"

#include <algorithm>
#include <array>
#include <utility>

#include <netinet/in.h>
#include <netinet/tcp.h>

#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::ErrorHandle;
using DesktopSupport::ObjectHandle;
using DesktopSupport::Out;

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
  ErrorHandle error;
  ObjectHandle<GSocket> socket(
      g_socket_new(G_SOCKET_FAMILY_IPV4, G_SOCKET_TYPE_STREAM, G_SOCKET_PROTOCOL_TCP, Out(error)));
  if (!socket)
    return std::nullopt;
  g_socket_set_option(socket.get(), IPPROTO_TCP, TCP_NODELAY, TRUE, nullptr);
  LocalConnection connection(std::move(socket), deadline);
  return connection.connect(port) ? std::optional(std::move(connection)) : std::nullopt;
}

LocalConnection::LocalConnection(ObjectHandle<GSocket> socket, Deadline deadline)
    : socket_(std::move(socket)), deadline_(deadline) {
  g_socket_set_blocking(socket_.get(), FALSE);
}

bool LocalConnection::connect(std::uint16_t port) {
  const ObjectHandle<GSocketAddress> address(g_inet_socket_address_new_from_string("127.0.0.1", port));
  ErrorHandle error;
  if (g_socket_connect(socket_.get(), address.get(), nullptr, Out(error)) != FALSE)
    return true;
  return g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_PENDING) != FALSE && await(G_IO_OUT) &&
         g_socket_check_connect_result(socket_.get(), Out(error)) != FALSE;
}

std::uint16_t LocalConnection::localPort() const {
  const ObjectHandle<GSocketAddress> address(g_socket_get_local_address(socket_.get(), nullptr));
  return address ? g_inet_socket_address_get_port(G_INET_SOCKET_ADDRESS(address.get())) : 0;
}

bool LocalConnection::await(GIOCondition condition) {
  using std::chrono::microseconds;
  const auto left = std::chrono::duration_cast<microseconds>(deadline_ - std::chrono::steady_clock::now());
  ErrorHandle error;
  return left > microseconds::zero() &&
         g_socket_condition_timed_wait(socket_.get(), condition, left.count(), nullptr, Out(error)) != FALSE;
}

bool LocalConnection::write(std::string_view bytes) {
  while (!bytes.empty()) {
    ErrorHandle error;
    const gssize count =
        await(G_IO_OUT) ? g_socket_send(socket_.get(), bytes.data(), bytes.size(), nullptr, Out(error)) : -1;
    if (count > 0)
      bytes.remove_prefix(static_cast<std::size_t>(count));
    else if (!g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_WOULD_BLOCK))
      return false;
  }
  return true;
}

bool LocalConnection::readMore() {
  bytes_.erase(0, std::exchange(taken_, 0));
  while (await(G_IO_IN)) {
    std::array<char, 16384> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): g_socket_receive fills it
    ErrorHandle error;
    const gssize count = g_socket_receive(socket_.get(), buffer.data(), buffer.size(), nullptr, Out(error));
    if (count > 0)
      bytes_.append(buffer.data(), static_cast<std::size_t>(count));
    if (count > 0 || !g_error_matches(error.get(), G_IO_ERROR, G_IO_ERROR_WOULD_BLOCK))
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
