#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <expected>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "DesktopSupport/Windows/Wayland/WaylandLibrary.h"
#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// A connection to a Wayland compositor. Objects live as long as the connection.
class WaylandConnection {
 public:
  /// Handles one event of an object: its place in the interface's description, and its arguments.
  using Listener = std::function<void(std::uint32_t event, const wl_argument* arguments)>;

  /// Talks to the compositor at the other end of `socket`, which remains the caller's, and asks for its globals in one
  /// round trip. Fails if it does not answer within `patience`, breaks off, or libwayland-client is missing.
  static std::expected<std::unique_ptr<WaylandConnection>, DesktopError> over(int socket,
                                                                              std::chrono::milliseconds patience);

  WaylandConnection(const WaylandConnection&) = delete;
  WaylandConnection& operator=(const WaylandConnection&) = delete;
  ~WaylandConnection();

  /// The global with this interface, in the newest version that both sides know; null if the compositor offers none, or
  /// one older than `oldest`.
  [[nodiscard]] wl_proxy* bind(const wl_interface& interface, std::uint32_t oldest = 1);

  /// The version of the interface that the object has.
  [[nodiscard]] std::uint32_t versionOf(wl_proxy* object) const;

  /// Makes `listener` handle the events of `object`. Every object that an event or a request makes needs one, and only
  /// one.
  void listen(wl_proxy* object, Listener listener);

  /// Sends the request with this place in the description of `object`. If it makes an object, `made` is its interface,
  /// and its argument is null.
  wl_proxy* request(wl_proxy* object, std::uint32_t request, std::initializer_list<wl_argument> arguments,
                    const wl_interface* made = nullptr);

  /// Waits until the compositor has done what was requested before, and all events up to then are handled. Fails if it
  /// does not answer within the time limit or breaks off; after that, it fails at once.
  std::expected<void, DesktopError> roundTrip();

 private:
  struct Global {
    std::uint32_t name;
    std::uint32_t version;
  };

  WaylandConnection(const WaylandLibrary& library, wl_display* display, std::chrono::milliseconds patience);
  [[nodiscard]] wl_proxy* displayObject() const;
  [[nodiscard]] std::expected<void, DesktopError> readEvents(std::chrono::steady_clock::time_point deadline);

  const WaylandLibrary& library_;
  wl_display* display_;
  std::chrono::milliseconds patience_;
  bool isSilent_ = false;
  wl_proxy* registry_ = nullptr;
  std::multimap<std::string, Global, std::less<>> globals_;
  struct Object {
    wl_proxy* proxy;
    Listener listener;
  };
  static int dispatch(const void* object, void* proxy, std::uint32_t event, const wl_message* message,
                      wl_argument* arguments);

  // A deque, so that they stay in place.
  std::deque<Object> objects_;
};

}  // namespace DesktopSupport
