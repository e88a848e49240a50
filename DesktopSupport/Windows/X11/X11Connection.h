#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <expected>
#include <filesystem>
#include <memory>

#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/Windows/Window.h"
#include "DesktopSupport/Windows/X11/XCBLibrary.h"

namespace DesktopSupport {

/// A reply of the X server, which xcb allocates.
template <typename T>
using Reply = std::unique_ptr<T, ReleasedBy<std::free>>;

/// A connection to the X server. If all requests are sent before their replies are collected, they take one round trip
/// together.
class X11Connection {
 public:
  /// The usual timeout for the server. A program may hold it for a while, as one that takes a screenshot does.
  static constexpr std::chrono::seconds longestSilence{30};

  /// Connects to the server that DISPLAY names. Fails if DISPLAY is unset, libxcb is missing, or the server refuses the
  /// connection or does not answer within `patience`, which is its time limit for each reply too.
  static std::expected<X11Connection, DesktopError> connect(std::chrono::milliseconds patience = longestSilence);

  /// The functions that take the handle.
  [[nodiscard]] const XCBLibrary& library() const { return *library_; }
  [[nodiscard]] xcb_connection_t* handle() const { return connection_.get(); }
  [[nodiscard]] xcb_window_t root() const { return screen_->root; }

  /// The bits of a window's id that identify the client that made it.
  [[nodiscard]] std::uint32_t clientOf(xcb_window_t window) const;

  /// Whether the server runs on this machine, so that its process ids are valid here.
  [[nodiscard]] bool isLocal() const;

  /// False after the connection broke or the server did not answer in time. Replies are missing then.
  [[nodiscard]] bool isAlive() const { return !isSilent_ && library_->connectionHasError(connection_.get()) == 0; }

  /// Records a request that has just been made: `sent(library().getProperty(…))`.
  template <typename Cookie>
  Cookie sent(Cookie cookie) {
    lastSent_ = cookie.sequence;
    return cookie;
  }

  /// Waits for the reply to a recorded request. Null if the server answers with an error, as it does for a window that
  /// is gone.
  template <typename T, typename Cookie>
  Reply<T> reply(Cookie cookie) {
    return Reply<T>(static_cast<T*>(await(cookie.sequence)));
  }

  /// How many round trips the replies have taken so far.
  [[nodiscard]] std::size_t roundTrips() const { return roundTrips_; }

 private:
  struct Disconnect {
    const XCBLibrary* library;
    void operator()(xcb_connection_t* connection) const { library->disconnect(connection); }
  };

  X11Connection(const XCBLibrary& library, xcb_connection_t* connection, const xcb_screen_t* screen,
                std::chrono::milliseconds patience);
  void* await(unsigned int sequence);
  bool waitUntilReadable();

  const XCBLibrary* library_;
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  const xcb_screen_t* screen_;
  std::chrono::milliseconds patience_;
  bool isSilent_ = false;
  unsigned int lastSent_ = 0;
  unsigned int lastFlushed_ = 0;
  std::size_t roundTrips_ = 0;
};

/// Whether a program is connected to the X server on this machine that DISPLAY names, as far as `sockets` tells, the
/// kernel's table of local sockets. A compositor starts its X server for the first program that connects.
bool hasX11Clients(const std::filesystem::path& sockets = "/proc/net/unix");

}  // namespace DesktopSupport
