#include "DesktopSupport/Bus/BusSocket.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <optional>
#include <utility>

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

constexpr std::string_view ownKind = "unix:";

/// The text with each %XX replaced by the byte with that number. `nullopt` if a percent sign is followed by something
/// else.
std::optional<std::string> unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t index = 0; index < text.size(); ++index) {
    if (text[index] != '%') {
      plain += text[index];
      continue;
    }
    const auto code =
        text.size() - index > 2 ? parseNumber<unsigned char>(text.substr(index + 1, 2), 16) : std::nullopt;
    if (!code)
      return std::nullopt;
    plain += static_cast<char>(*code);
    index += 2;
  }
  return plain;
}

/// The value of a key of one address, "path" of unix:path=/run/bus,guid=1.
std::optional<std::string> valueOf(std::string_view address, std::string_view key) {
  for (const std::string_view pair : separated(address.substr(ownKind.size()), ','))
    if (pair.starts_with(key) && pair.substr(key.size()).starts_with('='))
      return unescaped(pair.substr(key.size() + 1));
  return std::nullopt;
}

struct SocketName {
  sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
  socklen_t length = 0;
};

std::optional<SocketName> socketName(std::string_view address) {
  std::string name;
  if (const auto path = valueOf(address, "path"))
    name = *path;
  else if (const auto abstract = valueOf(address, "abstract"))
    name = std::string(1, '\0') + *abstract;
  SocketName socketName;
  if (name.empty() || name.size() >= sizeof socketName.address.sun_path)
    return std::nullopt;
  std::ranges::copy(name, socketName.address.sun_path);
  // A path is followed by a NUL. An abstract name ends where the address does.
  const std::size_t terminator = name.front() == '\0' ? 0 : 1;
  socketName.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size() + terminator);
  return socketName;
}

timeval timevalOf(std::chrono::milliseconds time) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
  return {.tv_sec = seconds.count(), .tv_usec = std::chrono::microseconds(time - seconds).count()};
}

BusError noServer(std::string message) {
  return {.name = std::string(BusErrorName::noServer), .message = std::move(message)};
}

std::expected<std::unique_ptr<FileDescriptor>, BusError> connected(const SocketName& name,
                                                                   std::chrono::milliseconds patience) {
  auto descriptor = std::make_unique<FileDescriptor>(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  // A server with too many connections to accept lets the next one wait.
  const timeval limit = timevalOf(std::max(patience, std::chrono::milliseconds(1)));
  if (descriptor->isOpen() && setsockopt(descriptor->number(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit) == 0 &&
      connect(descriptor->number(), reinterpret_cast<const sockaddr*>(&name.address), name.length) == 0)
    return descriptor;
  if (errno == EAGAIN)
    return std::unexpected(noServer("The session bus does not answer."));
  return std::unexpected(noServer(std::string("The session bus cannot be reached: ") + std::strerror(errno)));
}

}  // namespace

std::expected<std::unique_ptr<FileDescriptor>, BusError> connectedBusSocket(std::string_view address,
                                                                            std::chrono::milliseconds patience) {
  const auto parts = separated(address, ';');
  // Other kinds would start a program or leave this machine.
  if (parts.empty() || !std::ranges::all_of(parts, [](auto part) { return part.starts_with(ownKind); }))
    return std::unexpected(
        BusError{std::string(BusErrorName::notSupported), "The bus has an unknown kind of address."});
  BusError problem = noServer("The bus has an unknown kind of address.");
  for (const std::string_view part : parts) {
    const auto name = socketName(part);
    if (!name)
      continue;
    auto socket = connected(*name, patience);
    if (socket)
      return socket;
    problem = std::move(socket.error());
  }
  return std::unexpected(problem);
}

std::string busAuthentication() {
  // The NUL is where some systems send credentials. The user's number is in decimal digits, each digit in hexadecimal.
  std::string text("\0AUTH EXTERNAL ", 15);
  for (const char digit : std::to_string(geteuid())) {
    text += '3';
    text += digit;
  }
  return text + "\r\nBEGIN\r\n";
}

}  // namespace DesktopSupport
