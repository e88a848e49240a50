#pragma once

#include <cstdint>
#include <initializer_list>

#include "Tests/Support/TestDesktop.h"

namespace TestSupport {

/// A keyboard and a mouse on the X server. Their input reaches windows as a user's does.
class TestInput {
 public:
  explicit TestInput(const TestDesktop& desktop) : desktop_(desktop) {}

  /// Presses and releases the key for `keysym`, one of the XKB_KEY_ constants of xkbcommon-keysyms.h, with the shift
  /// key if needed. The window with the focus receives it. Throws if there is no such key.
  void press(std::uint32_t keysym) const { press({}, keysym); }

  /// The same while other keys, such as XKB_KEY_Control_L, are held down.
  void press(std::initializer_list<std::uint32_t> held, std::uint32_t keysym) const;

  /// Clicks with the first mouse button at a point of the root window.
  void click(int x, int y) const;

 private:
  void fake(std::uint8_t eventType, std::uint8_t detail, int x = 0, int y = 0) const;

  const TestDesktop& desktop_;
};

}  // namespace TestSupport
