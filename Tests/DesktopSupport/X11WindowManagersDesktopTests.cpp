#include <algorithm>

#include <gtest/gtest.h>

#include "DesktopSupport/Windows/X11/X11Connection.h"
#include "DesktopSupport/Windows/X11/X11Windows.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/FakeWindowManager.h"
#include "Tests/Support/TestXServer.h"

namespace {

using DesktopSupport::readX11Windows;
using DesktopSupport::X11Connection;
using TestSupport::EnvironmentVariable;
using TestSupport::FakeWindowManager;
using TestSupport::TestDesktop;

TEST(ReadingWindows, FailsWithoutADisplay) {
  const EnvironmentVariable display("DISPLAY", std::nullopt);
  const auto list = readX11Windows();
  ASSERT_FALSE(list);
  EXPECT_NE(list.error().message.find("DISPLAY"), std::string::npos);
}

TEST(ReadingWindows, FailsIfNoServerAnswers) {
  for (const char* name : {":987", "", "rubbish", ":", "localhost:987", "/no/such/socket"}) {
    const EnvironmentVariable display("DISPLAY", name);
    EXPECT_FALSE(readX11Windows()) << name;
  }
}

// A server of the test's own, whose window manager is made up.
class WindowManagersTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { server = std::make_unique<TestSupport::TestXServer>(); }
  static void TearDownTestSuite() { server.reset(); }

  static std::size_t roundTrips() {
    auto connection = X11Connection::connect();
    EXPECT_TRUE(readX11Windows(*connection));
    return connection->roundTrips();
  }

  std::vector<xcb_window_t> makeWindows(int count) {
    std::vector<xcb_window_t> windows;
    for (int number = 0; number < count; ++number)
      windows.push_back(desktop_.makeWindow());
    desktop_.synchronize();
    return windows;
  }

  inline static std::unique_ptr<TestSupport::TestXServer> server;
  TestDesktop desktop_;
};

TEST_F(WindowManagersTest, AreNeededToReadWindows) {
  const auto list = readX11Windows();
  ASSERT_FALSE(list);
  EXPECT_EQ(list.error().message, "There is no window manager.");
}

TEST_F(WindowManagersTest, AreNeededEvenIfOneHasLeftItsList) {
  FakeWindowManager manager(desktop_);
  manager.list(makeWindows(1));
  ASSERT_TRUE(readX11Windows());
  manager.crash();
  const auto list = readX11Windows();
  ASSERT_FALSE(list);
  EXPECT_EQ(list.error().message, "There is no window manager.");
}

TEST_F(WindowManagersTest, MustListTheirWindows) {
  const FakeWindowManager manager(desktop_);
  const auto list = readX11Windows();
  ASSERT_FALSE(list);
  EXPECT_EQ(list.error().message, "The window manager does not list its windows.");
}

TEST_F(WindowManagersTest, MayListNoWindows) {
  const FakeWindowManager manager(desktop_);
  manager.list({});
  const auto list = readX11Windows();
  ASSERT_TRUE(list);
  EXPECT_TRUE(list->windows.empty());
}

TEST_F(WindowManagersTest, MayListWindowsThatAreGone) {
  const FakeWindowManager manager(desktop_);
  const auto windows = makeWindows(3);
  manager.list(windows);
  xcb_destroy_window(desktop_.connection(), windows[1]);
  desktop_.synchronize();
  const auto list = readX11Windows();
  ASSERT_TRUE(list);
  ASSERT_EQ(list->windows.size(), 2U);
  EXPECT_EQ(list->windows[0].id, windows[0]);
  EXPECT_EQ(list->windows[1].id, windows[2]);
}

TEST_F(WindowManagersTest, MayListWhatNeverWasAWindow) {
  const FakeWindowManager manager(desktop_);
  manager.list({0, 0xffffffff, 0x1fffffff});
  const auto list = readX11Windows();
  ASSERT_TRUE(list);
  EXPECT_TRUE(list->windows.empty());
}

TEST_F(WindowManagersTest, TellWhichWindowIsActive) {
  const FakeWindowManager manager(desktop_);
  const auto windows = makeWindows(2);
  manager.list(windows);
  EXPECT_EQ(readX11Windows()->active, std::nullopt);
  manager.activate(windows[1]);
  EXPECT_EQ(readX11Windows()->active, windows[1]);
}

TEST_F(WindowManagersTest, AreAskedInThreeRoundTripsWhateverTheNumberOfWindows) {
  const FakeWindowManager manager(desktop_);
  manager.list({});
  EXPECT_EQ(roundTrips(), 3U);
  manager.list(makeWindows(1));
  EXPECT_EQ(roundTrips(), 3U);
  const auto windows = makeWindows(2000);
  manager.list(windows);
  EXPECT_EQ(roundTrips(), 3U);
  EXPECT_EQ(readX11Windows()->windows.size(), windows.size());
}

}  // namespace
