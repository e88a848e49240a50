#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

namespace TestSupport {

/// A client of the X server that DISPLAY names, with the small things that tests do there. Throws where there is no
/// server.
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
  /// A property's value; empty where the window lacks it.
  [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_window_t window, std::string_view property) const;
  [[nodiscard]] std::string text(xcb_window_t window, std::string_view property) const;

  /// Waits until `condition` holds; looks again whenever a property of the root or of a window of this client changes.
  /// False where that takes so long that something must be broken.
  [[nodiscard]] bool waitUntil(const std::function<bool()>& condition) const;

  /// Waits until a window whose WM_CLASS ends with `windowClass` is listed.
  [[nodiscard]] bool waitForClass(std::string_view windowClass) const;

  /// Returns once the server has done all that this client asked for.
  void synchronize() const;

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
  };
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  xcb_window_t root_ = 0;
};

}  // namespace TestSupport
