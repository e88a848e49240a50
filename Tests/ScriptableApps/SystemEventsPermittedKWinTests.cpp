#include <algorithm>
#include <iterator>

#include "Tests/ScriptableApps/SystemEventsOnWayland.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestWindow.h"

// Here KWin permits the program to see the windows: its desktop entry in the build folder asks for that.

namespace {

TEST_F(SystemEventsOnWaylandTest, KnowsWhichApplicationIsInFront) {
  expectThatTheFrontIsKnown();
}

TEST_F(SystemEventsOnWaylandTest, ShowsAnApplicationUntilAllItsWindowsAreMinimized) {
  expectThatVisibilityIsKnown();
}

TEST_F(SystemEventsOnWaylandTest, KnowsTheProcessesOfAllPrograms) {
  start("Native", {"one", "two"});
  EXPECT_EQ(onlyProcess().pid, programs.front().pid());
}

TEST_F(SystemEventsOnWaylandTest, KnowsTheStackingOrder) {
  start("Native", {"One", "Two"});
  start("Native", {"Three"}, WindowSystem::x11);
  const auto stack = [] {
    const auto list = DesktopSupport::readWindows();
    std::vector<std::string> titles;
    for (const DesktopSupport::WindowID id : list ? list->stack : std::vector<DesktopSupport::WindowID>())
      titles.push_back(std::ranges::find(list->windows, id, &DesktopSupport::Window::id)->title);
    return titles;
  };
  for (const auto* title : {"Two", "Three", "One"})
    ASSERT_TRUE(compositor->focus(title));
  EXPECT_THAT(stack(), ElementsAre("Two", "Three", "One"));
}

// KWin tells the second title as "equal <2>".
TEST_F(SystemEventsOnWaylandTest, KnowsTheWindowsOwnTitles) {
  start("Native", {"equal", "equal"});
  start("Xwayland", {"equal"}, WindowSystem::x11);
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  std::vector<std::string> titles;
  std::ranges::transform(list->windows, std::back_inserter(titles), &DesktopSupport::Window::title);
  EXPECT_THAT(titles, ElementsAre("equal", "equal", "equal"));
}

TEST_F(SystemEventsOnWaylandTest, KnowsEverything) {
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_TRUE(list->isComplete);
  EXPECT_THAT(list->problems, IsEmpty());
}

TEST_F(SystemEventsOnWaylandTest, KnowsTheProcessOfAWindowUnderXThatDoesNotTellIt) {
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow window(desktop);
  ASSERT_TRUE(
      window.setText("_NET_WM_NAME", "silent", "UTF8_STRING").setClass("xwayland", "com.example.Xwayland").show());
  EXPECT_TRUE(compositor->awaitWindow("silent"));
  EXPECT_EQ(onlyProcess().pid, getpid());
}

}  // namespace
