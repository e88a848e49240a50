#include "Tests/ScriptableApps/SystemEventsOnKWin.h"

// Here KWin lets the program only search for windows.

namespace {

TEST_F(SystemEventsOnKWin, KnowsOnlyTheProcessesOfX11Programs) {
  startThree();
  EXPECT_EQ(process(editor).pid, std::nullopt);
  EXPECT_EQ(process("featherpad").pid, std::nullopt);
  EXPECT_EQ(process("debian-xterm").pid, programs[2].pid());
}

TEST_F(SystemEventsOnKWin, DoesNotKnowWhichWaylandProgramIsFrontmost) {
  startThree();
  ASSERT_TRUE(compositor->focus("a terminal"));
  EXPECT_THAT(frontmost(), ElementsAre("debian-xterm"));
  ASSERT_TRUE(compositor->focus("One"));
  EXPECT_THAT(frontmost(), IsEmpty());
}

TEST_F(SystemEventsOnKWin, SaysThatNotAllIsKnown) {
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_FALSE(list->isComplete);
  EXPECT_THAT(list->problems, ElementsAre(testing::StartsWith("KWin lets this program only search for windows")));
}

}  // namespace
