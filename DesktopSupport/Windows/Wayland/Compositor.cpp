#include "DesktopSupport/Windows/Wayland/Compositor.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include <sys/socket.h>
#include <sys/un.h>

#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/UserFolders.h"
#include "DesktopSupport/Windows/Wayland/WaylandConnection.h"

namespace DesktopSupport {

namespace {

std::optional<std::string> valueOf(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0' ? std::optional<std::string>(value) : std::nullopt;
}

// Connects to the socket at `path`. Does not wait for a compositor with a long queue. Returns an error number.
int connectTo(const std::string& path, int socket) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof(address.sun_path))
    return ENAMETOOLONG;
  std::memcpy(address.sun_path, path.data(), path.size());
  // The C interface takes every kind of address through this pointer type.
  const auto* const any = reinterpret_cast<const sockaddr*>(&address);
  return ::connect(socket, any, sizeof(address)) == 0 ? 0 : errno;
}

}  // namespace

void Compositor::connect() {
  if (std::exchange(hasConnected_, true))
    return;
  const auto named = valueOf("WAYLAND_DISPLAY");
  const auto runtimeFolder = folderNamedBy("XDG_RUNTIME_DIR");
  std::filesystem::path path = named.value_or("wayland-0");
  if (path.is_relative() && !runtimeFolder) {
    if (named)
      problem_ = "WAYLAND_DISPLAY is set, but XDG_RUNTIME_DIR names no folder with its socket.";
    return;
  }
  path = runtimeFolder.value_or("") / path;
  socket_.emplace(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  const int error = connectTo(path, socket_->number());
  if (error == 0)
    return;
  socket_.reset();
  if (named)
    problem_ = "WAYLAND_DISPLAY names " + displayable(path.string()) +
               ", where no compositor answers: " + std::generic_category().message(error) + '.';
}

bool Compositor::isRunning() {
  connect();
  return socket_.has_value();
}

const std::optional<std::string>& Compositor::problem() {
  connect();
  return problem_;
}

std::expected<WaylandConnection*, DesktopError> Compositor::connection() {
  connect();
  if (!socket_)
    return std::unexpected(DesktopError{.message = "No Wayland compositor is running.", .isAbsent = true});
  if (!connection_)
    connection_ = WaylandConnection::over(socket_->number(), patience_);
  if (!*connection_)
    return std::unexpected(connection_->error());
  return (*connection_)->get();
}

Compositor::Compositor(std::chrono::milliseconds patience) : patience_(patience) {}

Compositor::~Compositor() = default;

ProcessInfo Compositor::process() {
  connect();
  ucred peer = {};
  socklen_t size = sizeof(peer);
  const bool isKnown = socket_ && getsockopt(socket_->number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0;
  return ProcessInfo(isKnown ? std::optional(peer.pid) : std::nullopt);
}

bool Compositor::numbersProcessesAsHere() {
  return process().isOwnAndOutsideNamespaces();
}

bool Compositor::mayBe(std::string_view program) {
  if (program.empty())
    return true;
  const auto executable = process().executable();
  return !executable || executable->filename().native().starts_with(program);
}

std::string Compositor::name() {
  const auto program = process().executable();
  return program ? displayable(program->filename().string()) : "The compositor";
}

}  // namespace DesktopSupport
