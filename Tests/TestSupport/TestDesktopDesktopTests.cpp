#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestWindow.h"

using TestSupport::TestDesktop;
using TestSupport::TestWindow;

namespace {

class TestDesktopTest : public testing::Test {
 protected:
  const TestDesktop desktop;
  const TestDesktop otherClient;
};

TEST_F(TestDesktopTest, FindsAWindowByItsTitle) {
  TestWindow wrong(otherClient);
  wrong.setText("_NET_WM_NAME", "About", "UTF8_STRING");
  TestWindow window(otherClient);
  window.setText("_NET_WM_NAME", "About Plugin", "UTF8_STRING");
  ASSERT_TRUE(wrong.show() && window.show());
  EXPECT_EQ(desktop.waitForTitle("About Plugin"), window.id());
}

TEST_F(TestDesktopTest, NoticesATitleThatAnotherClientChanges) {
  TestWindow window(otherClient);
  ASSERT_TRUE(window.show());
  desktop.watch(window.id());
  // The title changes after the first check.
  EXPECT_TRUE(desktop.waitUntil([&] {
    const bool isChanged = desktop.text(window.id(), "_NET_WM_NAME") == "new";
    window.setText("_NET_WM_NAME", "new", "UTF8_STRING");
    otherClient.synchronize();
    return isChanged;
  }));
}

TEST_F(TestDesktopTest, KnowsWhereAWindowIs) {
  TestWindow window(otherClient);
  ASSERT_TRUE(window.show());
  const auto before = desktop.geometry(window.id());
  ASSERT_TRUE(before);
  EXPECT_EQ(before->width, 100);
  EXPECT_EQ(before->height, 100);

  desktop.watch(window.id());
  const std::uint32_t size[] = {150, 120};
  xcb_configure_window(otherClient.connection(), window.id(), XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
  otherClient.synchronize();
  EXPECT_TRUE(desktop.waitUntil([&] {
    const auto now = desktop.geometry(window.id());
    return now && now->width == 150 && now->height == 120;
  }));
}

TEST_F(TestDesktopTest, KnowsNoPlaceOfAWindowThatIsNone) {
  EXPECT_FALSE(desktop.geometry(XCB_NONE));
}

TEST_F(TestDesktopTest, KnowsWhichWindowIsActiveAndOnTop) {
  EXPECT_TRUE(desktop.waitUntil([&] { return !desktop.activeWindow(); }));
  TestWindow first(otherClient);
  TestWindow second(otherClient);
  ASSERT_TRUE(first.show() && second.show());
  EXPECT_TRUE(desktop.waitUntil([&] { return desktop.stackedClients() == std::vector{first.id(), second.id()}; }));
  EXPECT_TRUE(desktop.waitUntil([&] { return desktop.activeWindow() == second.id(); }));
}

}  // namespace
