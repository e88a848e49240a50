#include "DesktopSupport/Windows/X11/X11Connection.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

#include <poll.h>
#include <sys/socket.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/TimeLimit.h"

namespace DesktopSupport {

namespace {

const xcb_screen_t* screenOf(const XCBLibrary& library, xcb_connection_t* connection, int number) {
  auto screens = library.setupRootsIterator(library.getSetup(connection));
  while (screens.rem > 0 && number-- > 0)
    library.screenNext(&screens);
  return screens.rem > 0 ? screens.data : nullptr;
}

}  // namespace

std::expected<X11Connection, DesktopError> X11Connection::connect(std::chrono::milliseconds patience) {
  if (std::getenv("DISPLAY") == nullptr)
    return std::unexpected(DesktopError{"There is no X display: DISPLAY is not set."});
  const auto& library = XCBLibrary::load();
  if (!library)
    return std::unexpected(DesktopError{library.error()});
  // A server that hangs takes the connection and does not answer.
  const auto connected = resultWithin(patience, [&library] {
    int number = 0;
    xcb_connection_t* const made = library->connect(nullptr, &number);
    return std::pair(made, number);
  });
  if (!connected)
    return std::unexpected(DesktopError{"The X server does not answer."});
  const auto [connection, screenNumber] = *connected;
  const bool isConnected = library->connectionHasError(connection) == 0;
  const xcb_screen_t* screen = isConnected ? screenOf(*library, connection, screenNumber) : nullptr;
  X11Connection made(*library, connection, screen, patience);
  if (screen == nullptr)
    return std::unexpected(DesktopError{"The X display cannot be opened."});
  return made;
}

X11Connection::X11Connection(const XCBLibrary& library, xcb_connection_t* connection, const xcb_screen_t* screen,
                             std::chrono::milliseconds patience)
    : library_(&library), connection_(connection, Disconnect{&library}), screen_(screen), patience_(patience) {}

std::uint32_t X11Connection::clientOf(xcb_window_t window) const {
  return window & ~library_->getSetup(connection_.get())->resource_id_mask;
}

bool X11Connection::isLocal() const {
  sockaddr_storage address = {};
  socklen_t size = sizeof(address);
  // The C interface takes every kind of address through this pointer type.
  auto* const any = reinterpret_cast<sockaddr*>(&address);
  return getsockname(library_->getFileDescriptor(connection_.get()), any, &size) == 0 && address.ss_family == AF_UNIX;
}

bool X11Connection::waitUntilReadable() {
  pollfd socket = {.fd = library_->getFileDescriptor(connection_.get()), .events = POLLIN, .revents = 0};
  int ready = 0;
  do
    ready = poll(&socket, 1, static_cast<int>(patience_.count()));
  while (ready < 0 && errno == EINTR);
  isSilent_ = ready <= 0;
  return !isSilent_;
}

void* X11Connection::await(unsigned int sequence) {
  if (sequence > lastFlushed_) {
    library_->flush(connection_.get());
    lastFlushed_ = lastSent_;
    ++roundTrips_;
  }
  void* reply = nullptr;
  xcb_generic_error_t* error = nullptr;
  while (isAlive() && library_->pollForReply(connection_.get(), sequence, &reply, &error) == 0)
    if (!waitUntilReadable())
      break;
  std::free(error);
  return reply;
}

bool hasX11Clients(const std::filesystem::path& sockets) {
  const char* const display = std::getenv("DISPLAY");
  const std::string_view name = display != nullptr ? display : "";
  const auto colon = name.find(':');
  if (colon == std::string_view::npos)
    return false;
  const std::string path = "/tmp/.X11-unix/X" + std::string(name.substr(colon + 1, name.find('.', colon) - colon - 1));
  constexpr std::size_t largestTable = 64UL << 20;
  const std::string table = fileContents(sockets, largestTable).value_or("");
  // Number, references, protocol, flags, type, state, file, path, which is an abstract one after an '@'.
  constexpr std::size_t stateColumn = 5;
  constexpr std::string_view connected = "03";
  return std::ranges::any_of(separated(table, '\n'), [&](std::string_view line) {
    const auto columns = separated(line, ' ');
    return columns.size() > stateColumn && columns[stateColumn] == connected &&
           (columns.back() == path || columns.back() == '@' + path);
  });
}

}  // namespace DesktopSupport
