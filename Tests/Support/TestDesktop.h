#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

namespace TestSupport {

/// The place and size of a window in pixels, from the upper left corner of the root window.
struct WindowGeometry {
  int x;
  int y;
  int width;
  int height;
};

/// A client of the X server that DISPLAY names, with what tests do there. The constructor throws if there is no server.
class TestDesktop {
 public:
  TestDesktop();

  [[nodiscard]] xcb_connection_t* connection() const { return connection_.get(); }
  [[nodiscard]] xcb_window_t root() const { return root_; }
  [[nodiscard]] xcb_atom_t atom(std::string_view name) const;

  /// A window without properties, not yet shown.
  [[nodiscard]] xcb_window_t makeWindow() const;

  void setText(xcb_window_t window, std::string_view property, std::string_view bytes, std::string_view type) const;
  void setNumbers(xcb_window_t window, std::string_view property, const std::vector<std::uint32_t>& numbers,
                  std::string_view type) const;

  /// The windows that the window manager lists.
  [[nodiscard]] std::vector<xcb_window_t> clients() const { return numbers(root_, "_NET_CLIENT_LIST"); }
  /// The same windows from the bottom to the top.
  [[nodiscard]] std::vector<xcb_window_t> stackedClients() const { return numbers(root_, "_NET_CLIENT_LIST_STACKING"); }
  /// The listed window with the keyboard focus. (The window manager's _NET_ACTIVE_WINDOW may name one that is gone.)
  [[nodiscard]] std::optional<xcb_window_t> activeWindow() const;
  /// Whether a toolkit's window is ready for input: its contents are laid out, and it has passed the focus on to a
  /// window inside it. Earlier input is lost.
  [[nodiscard]] bool isReady(xcb_window_t window) const;
  /// The geometry of the window without the window manager's frame, or `nullopt` if there is no such window.
  [[nodiscard]] std::optional<WindowGeometry> geometry(xcb_window_t window) const;
  /// A property's value, empty if the window doesn't have it.
  [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window, std::string_view property) const;
  [[nodiscard]] std::string text(xcb_window_t window, std::string_view property) const;

  /// Makes `waitUntil` check again when a property, the place, the size or the focus of this window changes.
  void watch(xcb_window_t window) const;

  /// Waits until `condition` holds. Checks it when a property of the root, of this client's windows or of a watched
  /// window changes. Returns false if it takes too long.
  [[nodiscard]] bool waitUntil(const std::function<bool()>& condition) const;

  /// Waits until no window is listed. The windows of a program that has ended may still be for a moment.
  [[nodiscard]] bool waitForNoWindows() const;

  /// Waits until a window whose WM_CLASS ends with `windowClass` is listed.
  [[nodiscard]] bool waitForClass(std::string_view windowClass) const;

  /// Waits until a window with this title is listed. `nullopt` if it takes too long.
  [[nodiscard]] std::optional<xcb_window_t> waitForTitle(std::string_view title) const;

  /// Sends the window manager a message about a window, such as "WM_CHANGE_STATE" or "_NET_CLOSE_WINDOW".
  void askWindowManager(xcb_window_t window, std::string_view request, std::uint32_t argument = 0) const;

  /// Waits until the server has processed all requests of this client.
  void synchronize() const;

 private:
  [[nodiscard]] xcb_window_t parent(xcb_window_t window) const;
  [[nodiscard]] xcb_window_t focus() const;

  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  xcb_window_t root_ = 0;
};

}  // namespace TestSupport
