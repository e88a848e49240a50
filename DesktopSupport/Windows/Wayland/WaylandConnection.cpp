#include "DesktopSupport/Windows/Wayland/WaylandConnection.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>
#include <utility>

#include <fcntl.h>
#include <poll.h>

#include "DesktopSupport/Windows/Wayland/Protocols.h"

namespace DesktopSupport {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// The places of what is used in the descriptions of wl_display, wl_registry and wl_callback.
namespace DisplayRequest {
constexpr std::uint32_t sync = 0;
constexpr std::uint32_t getRegistry = 1;
}  // namespace DisplayRequest
namespace RegistryRequest {
constexpr std::uint32_t bind = 0;
}
namespace RegistryEvent {
constexpr std::uint32_t global = 0;
}

constexpr wl_argument newObject{.o = nullptr};

std::unexpected<DesktopError> silent() {
  return std::unexpected(DesktopError{"The compositor does not answer."});
}

std::unexpected<DesktopError> brokenOff() {
  return std::unexpected(DesktopError{"The compositor has broken off the connection."});
}

bool waitUntilReadable(int socket, steady_clock::time_point deadline) {
  pollfd waiting = {.fd = socket, .events = POLLIN, .revents = 0};
  int ready = 0;
  do {
    const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
    ready = poll(&waiting, 1, static_cast<int>(std::max(left, milliseconds(0)).count()));
  } while (ready < 0 && errno == EINTR);
  return ready > 0;
}

}  // namespace

std::expected<std::unique_ptr<WaylandConnection>, DesktopError> WaylandConnection::over(int socket,
                                                                                        milliseconds patience) {
  const auto& library = WaylandLibrary::load();
  if (!library)
    return std::unexpected(DesktopError{library.error()});
  // It closes the descriptor when it disconnects.
  wl_display* const display = library->displayConnectToFD(fcntl(socket, F_DUPFD_CLOEXEC, 0));
  if (display == nullptr)
    return brokenOff();
  std::unique_ptr<WaylandConnection> connection(new WaylandConnection(*library, display, patience));
  if (auto answer = connection->roundTrip(); !answer)
    return std::unexpected(std::move(answer.error()));
  return connection;
}

WaylandConnection::WaylandConnection(const WaylandLibrary& library, wl_display* display, milliseconds patience)
    : library_(library), display_(display), patience_(patience) {
  registry_ = request(displayObject(), DisplayRequest::getRegistry, {newObject}, &wl_registry_interface);
  listen(registry_, [this](std::uint32_t event, const wl_argument* arguments) {
    if (event == RegistryEvent::global)
      globals_.emplace(arguments[1].s, Global{.name = arguments[0].u, .version = arguments[2].u});
  });
}

WaylandConnection::~WaylandConnection() {
  for (const Object& object : objects_)
    library_.proxyDestroy(object.proxy);
  library_.displayDisconnect(display_);
}

wl_proxy* WaylandConnection::displayObject() const {
  return reinterpret_cast<wl_proxy*>(display_);
}

wl_proxy* WaylandConnection::bind(const wl_interface& interface, std::uint32_t oldest) {
  const auto global = globals_.find(std::string_view(interface.name));
  if (global == globals_.end() || global->second.version < oldest)
    return nullptr;
  const auto [name, offered] = global->second;
  const std::uint32_t version = std::min(offered, static_cast<std::uint32_t>(interface.version));
  std::array arguments = {wl_argument{.u = name}, wl_argument{.s = interface.name}, wl_argument{.u = version},
                          newObject};
  return library_.proxyMarshalArrayFlags(registry_, RegistryRequest::bind, &interface, version, 0, arguments.data());
}

std::uint32_t WaylandConnection::versionOf(wl_proxy* object) const {
  return library_.proxyGetVersion(object);
}

int WaylandConnection::dispatch(const void* object, void*, std::uint32_t event, const wl_message*,
                                wl_argument* arguments) {
  static_cast<const Object*>(object)->listener(event, arguments);
  return 0;
}

void WaylandConnection::listen(wl_proxy* object, Listener listener) {
  const Object& listening = objects_.emplace_back(Object{.proxy = object, .listener = std::move(listener)});
  library_.proxyAddDispatcher(object, dispatch, &listening, nullptr);
}

wl_proxy* WaylandConnection::request(wl_proxy* object, std::uint32_t request,
                                     std::initializer_list<wl_argument> arguments, const wl_interface* made) {
  std::vector<wl_argument> copies(arguments);
  return library_.proxyMarshalArrayFlags(object, request, made, versionOf(object), 0, copies.data());
}

std::expected<void, DesktopError> WaylandConnection::readEvents(steady_clock::time_point deadline) {
  library_.displayFlush(display_);
  if (!waitUntilReadable(library_.displayGetFD(display_), deadline)) {
    library_.displayCancelRead(display_);
    isSilent_ = true;
    return silent();
  }
  return library_.displayReadEvents(display_) < 0 ? brokenOff() : std::expected<void, DesktopError>();
}

std::expected<void, DesktopError> WaylandConnection::roundTrip() {
  if (isSilent_)
    return silent();
  const auto deadline = steady_clock::now() + patience_;
  const auto isDone = std::make_shared<bool>(false);
  wl_proxy* const callback = request(displayObject(), DisplayRequest::sync, {newObject}, &wl_callback_interface);
  listen(callback, [isDone](std::uint32_t, const wl_argument*) { *isDone = true; });
  while (true) {
    while (library_.displayPrepareRead(display_) != 0)
      if (library_.displayDispatchPending(display_) < 0)
        return brokenOff();
    if (*isDone) {
      library_.displayCancelRead(display_);
      return {};
    }
    if (auto events = readEvents(deadline); !events)
      return events;
  }
}

}  // namespace DesktopSupport
