#include "Tests/ScriptableApps/SystemEventsOnWayland.h"

// Here KWin lets the program only search for windows.

namespace {

TEST_F(SystemEventsOnWaylandTest, ShowsAnApplicationUntilAllItsWindowsAreMinimized) {
  expectThatVisibilityIsKnown();
}

TEST_F(SystemEventsOnWaylandTest, KnowsOnlyTheProcessesOfX11Programs) {
  start("Native", {"native"});
  EXPECT_EQ(onlyProcess().pid, std::nullopt);
}

TEST_F(SystemEventsOnWaylandTest, DoesNotKnowWhichWaylandProgramIsInFront) {
  start("Native", {"one"});
  start("Xwayland", {"two"}, WindowSystem::x11);
  ASSERT_TRUE(compositor->focus("two"));
  EXPECT_THAT(frontmost(), ElementsAre("Xwayland"));
  ASSERT_TRUE(compositor->focus("one"));
  EXPECT_THAT(frontmost(), IsEmpty());
}

TEST_F(SystemEventsOnWaylandTest, SaysThatNotAllIsKnown) {
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_FALSE(list->isComplete);
  EXPECT_THAT(list->problems, ElementsAre(testing::StartsWith("KWin lets this program only search for windows")));
}

}  // namespace
