#include "Tests/Support/TestInput.h"

#include <cstdlib>
#include <memory>
#include <optional>
#include <ranges>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace TestSupport {

namespace {

struct Key {
  xcb_keycode_t code;
  bool needsShift;
};

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

std::optional<Key> keyOf(xcb_connection_t* connection, std::uint32_t keysym) {
  const auto* setup = xcb_get_setup(connection);
  const auto first = setup->min_keycode;
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
  const std::unique_ptr<xcb_get_keyboard_mapping_reply_t, Free> mapping(
      xcb_get_keyboard_mapping_reply(connection, xcb_get_keyboard_mapping(connection, first, count), nullptr));
  if (!mapping)
    return std::nullopt;

  const std::size_t columns = mapping->keysyms_per_keycode;
  const std::span keysyms(xcb_get_keyboard_mapping_keysyms(mapping.get()), columns * count);
  for (std::size_t column = 0; column < 2 && column < columns; ++column)
    for (std::size_t row = 0; row < count; ++row)
      if (keysyms[row * columns + column] == keysym)
        return Key{static_cast<xcb_keycode_t>(first + row), column == 1};
  return std::nullopt;
}

Key keyOrThrow(xcb_connection_t* connection, std::uint32_t keysym) {
  const auto key = keyOf(connection, keysym);
  if (!key)
    throw std::runtime_error("no key for the keysym " + std::to_string(keysym));
  return *key;
}

}  // namespace

void TestInput::press(std::initializer_list<std::uint32_t> held, std::uint32_t keysym) const {
  const Key key = keyOrThrow(desktop_.connection(), keysym);
  std::vector<xcb_keycode_t> down;
  for (const std::uint32_t other : held)
    down.push_back(keyOrThrow(desktop_.connection(), other).code);
  if (key.needsShift)
    down.push_back(keyOrThrow(desktop_.connection(), XKB_KEY_Shift_L).code);
  down.push_back(key.code);
  for (const xcb_keycode_t code : down)
    fake(XCB_KEY_PRESS, code);
  for (const xcb_keycode_t code : down | std::views::reverse)
    fake(XCB_KEY_RELEASE, code);
  desktop_.synchronize();
}

void TestInput::click(int x, int y) const {
  constexpr std::uint8_t firstButton = 1;
  constexpr std::uint8_t absolutePosition = 0;
  fake(XCB_MOTION_NOTIFY, absolutePosition, x, y);
  fake(XCB_BUTTON_PRESS, firstButton);
  fake(XCB_BUTTON_RELEASE, firstButton);
  desktop_.synchronize();
}

void TestInput::fake(std::uint8_t eventType, std::uint8_t detail, int x, int y) const {
  constexpr std::uint8_t anyDevice = 0;
  xcb_test_fake_input(desktop_.connection(), eventType, detail, XCB_CURRENT_TIME, desktop_.root(),
                      static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), anyDevice);
}

}  // namespace TestSupport
