#pragma once

#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <expected>
#include <memory>

#include <xcb/xcb.h>

#include "DesktopSupport/System/DesktopError.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

/// A reply of the X server, which xcb allocates.
template <typename T>
using Reply = std::unique_ptr<T, ReleasedBy<std::free>>;

/// A connection to the X server. Requests are sent first, all of them, and their replies collected then: that is one
/// round trip however many they are.
class X11Connection {
 public:
  /// How long the server is usually waited for: somebody may hold it for a while, as a program that takes a screenshot
  /// does.
  static constexpr std::chrono::seconds longestSilence{30};

  /// Connects to the server that DISPLAY names. Fails if it is unset, or the server refuses or does not answer within
  /// `patience`.
  static std::expected<X11Connection, DesktopError> connect(std::chrono::milliseconds patience = longestSilence);

  [[nodiscard]] xcb_connection_t* handle() const { return connection_.get(); }
  [[nodiscard]] xcb_window_t root() const { return screen_->root; }

  /// The bits of a window's id that tell which client made it.
  [[nodiscard]] std::uint32_t clientOf(xcb_window_t window) const;

  /// Whether the server runs on this machine, so that its process ids mean something here.
  [[nodiscard]] bool isLocal() const;

  /// False once the connection broke or the server was silent for too long: replies are missing then.
  [[nodiscard]] bool isAlive() const { return !isSilent_ && xcb_connection_has_error(connection_.get()) == 0; }

  /// Notes a request that was just made: `sent(xcb_get_property(…))`.
  template <typename Cookie>
  Cookie sent(Cookie cookie) {
    lastSent_ = cookie.sequence;
    return cookie;
  }

  /// Waits for the reply to a request that was noted. Empty where the server answers with an error, as it does for a
  /// window that is gone.
  template <typename T, typename Cookie>
  Reply<T> reply(Cookie cookie) {
    return Reply<T>(static_cast<T*>(await(cookie.sequence)));
  }

  /// How often a reply was waited for that only a new exchange with the server could bring.
  [[nodiscard]] std::size_t roundTrips() const { return roundTrips_; }

 private:
  X11Connection(xcb_connection_t* connection, const xcb_screen_t* screen);
  void* await(unsigned int sequence);
  bool waitUntilReadable();

  std::unique_ptr<xcb_connection_t, ReleasedBy<xcb_disconnect>> connection_;
  const xcb_screen_t* screen_;
  bool isSilent_ = false;
  unsigned int lastSent_ = 0;
  unsigned int lastFlushed_ = 0;
  std::size_t roundTrips_ = 0;
};

}  // namespace DesktopSupport
