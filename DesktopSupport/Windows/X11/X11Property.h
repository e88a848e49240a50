#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <xcb/xcb.h>

#include "DesktopSupport/Windows/X11/X11Connection.h"

namespace DesktopSupport {

/// The value of a window's property. A property that the window lacks, or that has another form than asked for, has
/// nothing.
class X11Property {
 public:
  /// What of a property is read at most, in bytes; a text that is longer is cut there.
  static constexpr std::uint32_t maximumSize = 256 * 1024;

  static xcb_get_property_cookie_t request(X11Connection& connection, xcb_window_t window, xcb_atom_t name);
  X11Property(X11Connection& connection, xcb_get_property_cookie_t request);
  /// The property of an answer that has come; null if the server answered with an error.
  explicit X11Property(Reply<xcb_get_property_reply_t> reply) : reply_(std::move(reply)) {}

  /// Whether the server answered, which it does not for a window that is gone.
  [[nodiscard]] bool hasAnswer() const { return reply_ != nullptr; }

  /// Whether the window has the property, be it empty.
  [[nodiscard]] bool exists() const { return hasAnswer() && reply_->type != XCB_ATOM_NONE; }

  /// The 32-bit numbers, window ids or atoms that the property holds.
  [[nodiscard]] std::vector<std::uint32_t> numbers() const;
  [[nodiscard]] std::optional<std::uint32_t> number() const;

  /// The texts that the property holds, separated by NUL, as UTF-8. `utf8String` is the atom of the type that is UTF-8;
  /// the older types of text are ISO 8859-1.
  [[nodiscard]] std::vector<std::string> texts(xcb_atom_t utf8String) const;

  /// The first of them; empty where there is none.
  [[nodiscard]] std::string text(xcb_atom_t utf8String) const;

 private:
  Reply<xcb_get_property_reply_t> reply_;
};

}  // namespace DesktopSupport
