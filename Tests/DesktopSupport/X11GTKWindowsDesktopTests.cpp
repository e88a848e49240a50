#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Windows/X11/X11Windows.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestWindow.h"
#include "Tests/Support/TestXServer.h"

namespace {

using DesktopSupport::GTKWindowName;
using DesktopSupport::readX11GTKWindows;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::TestDesktop;
using TestSupport::TestWindow;

class GTKWindow : public TestWindow {
 public:
  GTKWindow(const TestDesktop& desktop, std::string_view path) : TestWindow(desktop) {
    setText("_GTK_UNIQUE_BUS_NAME", ":1.7", "UTF8_STRING").setText("_GTK_WINDOW_OBJECT_PATH", path, "UTF8_STRING");
  }
};

GTKWindowName named(const std::string& path) {
  return {.connection = ":1.7", .path = path};
}

TEST(X11GTKWindows, HasTheTopmostWindowFirst) {
  const TestDesktop desktop;
  GTKWindow first(desktop, "/window/1");
  GTKWindow second(desktop, "/window/2");
  ASSERT_TRUE(first.show());
  ASSERT_TRUE(second.show());
  ASSERT_TRUE(desktop.waitUntil([&] { return desktop.stackedClients().back() == second.id(); }));
  EXPECT_THAT(readX11GTKWindows(), ElementsAre(named("/window/2"), named("/window/1")));
  desktop.askWindowManager(first.id(), "_NET_ACTIVE_WINDOW");
  ASSERT_TRUE(desktop.waitUntil([&] { return desktop.stackedClients().back() == first.id(); }));
  EXPECT_THAT(readX11GTKWindows(), ElementsAre(named("/window/1"), named("/window/2")));
}

TEST(X11GTKWindows, LeavesOutWindowsWithoutAName) {
  const TestDesktop desktop;
  TestWindow other(desktop);
  GTKWindow window(desktop, "/window/1");
  ASSERT_TRUE(other.show());
  ASSERT_TRUE(window.show());
  EXPECT_THAT(readX11GTKWindows(), ElementsAre(named("/window/1")));
}

TEST(X11GTKWindows, IsEmptyWithoutWindows) {
  EXPECT_THAT(readX11GTKWindows(), IsEmpty());
}

TEST(X11GTKWindows, IsEmptyWithoutAnXServer) {
  const TestSupport::EnvironmentVariable display("DISPLAY", std::nullopt);
  EXPECT_THAT(readX11GTKWindows(), IsEmpty());
}

TEST(X11GTKWindows, IsEmptyWithoutAWindowManager) {
  const TestSupport::TestXServer server;
  EXPECT_THAT(readX11GTKWindows(), IsEmpty());
}

}  // namespace
