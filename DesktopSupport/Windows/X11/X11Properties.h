#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "DesktopSupport/Windows/X11/X11Connection.h"

namespace DesktopSupport {

/// The names that window managers and windows use and that have no fixed number on an X server.
enum class X11Name : std::size_t {
  activeWindow,
  clientList,
  clientListStacking,
  supportingWindowManagerCheck,
  windowType,
  windowTypeDesktop,
  windowTypeDock,
  windowTypeSplash,
  state,
  stateHidden,
  stateSkipTaskbar,
  title,
  processID,
  gtkApplicationID,
  gtkUniqueBusName,
  gtkWindowObjectPath,
  utf8String,
  count,
};

/// Their numbers on one server.
class X11Atoms {
 public:
  /// Asks for all of them; the numbers are known after `collect`.
  explicit X11Atoms(X11Connection& connection);
  void collect(X11Connection& connection);

  [[nodiscard]] xcb_atom_t operator[](X11Name name) const { return atoms_[static_cast<std::size_t>(name)]; }

 private:
  static constexpr std::size_t size = static_cast<std::size_t>(X11Name::count);
  std::array<xcb_intern_atom_cookie_t, size> requests_ = {};
  std::array<xcb_atom_t, size> atoms_ = {};
};

/// The value of a window's property. Empty if the window lacks the property, or the property has another form than the
/// one asked for.
class X11Property {
 public:
  /// How many bytes of a property are read at most; a longer text is cut there.
  static constexpr std::uint32_t maximumSize = 256 * 1024;

  static xcb_get_property_cookie_t request(X11Connection& connection, xcb_window_t window, xcb_atom_t name);
  X11Property(X11Connection& connection, xcb_get_property_cookie_t request);

  /// From an answer; null if there is none.
  explicit X11Property(Reply<xcb_get_property_reply_t> reply) : reply_(std::move(reply)) {}

  /// Whether the server answered. It does not for a window that is gone.
  [[nodiscard]] bool hasAnswer() const { return reply_ != nullptr; }

  /// Whether the window has the property, even an empty one.
  [[nodiscard]] bool exists() const { return hasAnswer() && reply_->type != XCB_ATOM_NONE; }

  /// The 32-bit numbers, window ids or atoms in the property.
  [[nodiscard]] std::vector<std::uint32_t> numbers() const;
  [[nodiscard]] std::optional<std::uint32_t> number() const;

  /// The texts in the property, separated by NUL, as UTF-8. `utf8String` is the atom of the type that is UTF-8; the
  /// older types of text are ISO 8859-1.
  [[nodiscard]] std::vector<std::string> texts(xcb_atom_t utf8String) const;

  /// The first of them; empty if there is none.
  [[nodiscard]] std::string text(xcb_atom_t utf8String) const;

 private:
  // It follows the header.
  [[nodiscard]] const void* value() const { return reply_.get() + 1; }

  Reply<xcb_get_property_reply_t> reply_;
};

}  // namespace DesktopSupport
