#include "Tests/ScriptableApps/SystemEventsOnKWin.h"

// Here KWin permits the program to see the windows: its desktop entry in the build folder asks for that.

namespace {

TEST_F(SystemEventsOnKWinTest, KnowsTheProcesses) {
  start("Native", {"one"});
  EXPECT_EQ(onlyProcess().pid, programs.front().pid());
}

TEST_F(SystemEventsOnKWinTest, KnowsWhichApplicationIsInFront) {
  start("Native", {"one", "two"});
  start("Xwayland", {"three"}, WindowSystem::x11);
  for (const char* title : {"one", "three", "two"}) {
    EXPECT_TRUE(compositor->focus(title));
    EXPECT_THAT(namesOfFrontmostProcesses(), ElementsAre(title == std::string("three") ? "Xwayland" : "Native"));
  }
}

TEST_F(SystemEventsOnKWinTest, KnowsTheStackingOrder) {
  start("Native", {"one", "two"});
  start("Xwayland", {"three"}, WindowSystem::x11);
  for (const char* title : {"two", "three", "one"})
    EXPECT_TRUE(compositor->focus(title));
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  std::vector<std::string> titles;
  for (const DesktopSupport::WindowID id : list->stack)
    titles.push_back(std::ranges::find(list->windows, id, &Window::id)->title);
  EXPECT_THAT(titles, ElementsAre("two", "three", "one"));
}

TEST_F(SystemEventsOnKWinTest, KnowsEverything) {
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_TRUE(list->isComplete);
  EXPECT_THAT(list->problems, IsEmpty());
}

}  // namespace
