#include <stdexcept>

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestInput.h"
#include "Tests/Support/TestWindow.h"

using TestSupport::TestDesktop;
using TestSupport::TestInput;
using TestSupport::TestWindow;

namespace {

TEST(TestInput, ClicksIntoTheWindowThatIsThere) {
  const TestDesktop desktop;
  const TestInput mouse(desktop);
  TestWindow first(desktop);
  TestWindow second(desktop);
  ASSERT_TRUE(first.show() && second.show());

  for (const xcb_window_t window : {second.id(), first.id(), second.id()}) {
    const auto geometry = desktop.geometry(window);
    ASSERT_TRUE(geometry);
    mouse.click(geometry->x + geometry->width / 2, geometry->y + geometry->height / 2);
    EXPECT_TRUE(desktop.waitUntil(
        [&] { return desktop.activeWindow() == window && desktop.stackedClients().back() == window; }));
  }
}

TEST(TestInput, CannotPressWhatNoKeyMakes) {
  const TestDesktop desktop;
  EXPECT_THROW(TestInput(desktop).press(XKB_KEY_Cyrillic_yu), std::runtime_error);
}

}  // namespace
