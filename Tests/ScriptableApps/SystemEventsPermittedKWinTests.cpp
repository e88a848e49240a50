#include "Tests/ScriptableApps/SystemEventsOnKWin.h"

// Here KWin permits the program to see the windows: its desktop entry in the build folder asks for that.

namespace {

TEST_F(SystemEventsOnKWin, KnowsTheProcesses) {
  startThree();
  EXPECT_EQ(process(editor).pid, programs[0].pid());
  EXPECT_EQ(process("featherpad").pid, programs[1].pid());
  EXPECT_EQ(process("debian-xterm").pid, programs[2].pid());
}

TEST_F(SystemEventsOnKWin, KnowsWhichProgramIsFrontmost) {
  startThree();
  for (const auto& [title, entry] :
       {std::pair("One", editor), {"a terminal", "debian-xterm"}, {"Untitled", "featherpad"}}) {
    ASSERT_TRUE(compositor->focus(title));
    EXPECT_THAT(frontmost(), ElementsAre(entry));
  }
}

TEST_F(SystemEventsOnKWin, KnowsTheStackingOrder) {
  programs.push_back(startGTKWindows(editor, {"One", "Two"}));
  programs.push_back(startGTKWindows(editor, {"Three"}, WindowSystem::x11));
  const auto stack = [] {
    const auto list = DesktopSupport::readWindows();
    std::vector<std::string> titles;
    for (const DesktopSupport::WindowID id : list ? list->stack : std::vector<DesktopSupport::WindowID>())
      titles.push_back(std::ranges::find(list->windows, id, &Window::id)->title);
    return titles;
  };
  for (const auto* title : {"Two", "Three", "One"})
    ASSERT_TRUE(compositor->focus(title));
  EXPECT_THAT(stack(), ElementsAre("Two", "Three", "One"));
}

TEST_F(SystemEventsOnKWin, KnowsEverything) {
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_TRUE(list->isComplete);
  EXPECT_THAT(list->problems, IsEmpty());
}

}  // namespace
