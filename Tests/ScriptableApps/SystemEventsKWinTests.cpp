#include "Tests/ScriptableApps/SystemEventsOnKWin.h"

// Here KWin lets the program only search for windows.

namespace {

TEST_F(SystemEventsOnKWinTest, DoesNotKnowTheProcessesOfOtherPrograms) {
  start("Native", {"one"});
  EXPECT_EQ(onlyProcess().pid, std::nullopt);
}

TEST_F(SystemEventsOnKWinTest, KnowsOnlyOfProgramsUnderXWhetherTheyAreInFront) {
  start("Native", {"one"});
  start("Xwayland", {"two"}, WindowSystem::x11);
  EXPECT_TRUE(compositor->focus("two"));
  EXPECT_THAT(namesOfFrontmostProcesses(), ElementsAre("Xwayland"));
  EXPECT_TRUE(compositor->focus("one"));
  EXPECT_THAT(namesOfFrontmostProcesses(), IsEmpty());
}

TEST_F(SystemEventsOnKWinTest, SaysThatNotAllIsKnown) {
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_FALSE(list->isComplete);
  EXPECT_THAT(list->problems, ElementsAre(testing::StartsWith("KWin lets this program only search for windows")));
}

}  // namespace
