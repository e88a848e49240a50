#pragma once

#include <algorithm>

#include "DesktopSupport/Screen/Screen.h"
#include "Tests/ScriptableApps/SystemEventsOnWayland.h"

// What System Events promises on KWin, whether KWin permits the program to see the windows or not. Included by a test
// program for each.

namespace {

using DesktopSupport::Window;

using SystemEventsOnKWinTest = SystemEventsOnWaylandTest;

std::vector<std::string> namesOfFrontmostProcesses() {
  std::vector<std::string> names;
  for (const RunningApplication& process : openProcesses())
    if (process.isFrontmost)
      names.push_back(process.name);
  return names;
}

TEST_F(SystemEventsOnKWinTest, KnowsWhatIsVisible) {
  for (const auto windowSystem : {WindowSystem::wayland, WindowSystem::x11}) {
    start("Native", {"one", "two"}, windowSystem);
    EXPECT_TRUE(compositor->minimize("one"));
    EXPECT_TRUE(onlyProcess().isVisible);
    EXPECT_TRUE(compositor->minimize("two"));
    EXPECT_FALSE(onlyProcess().isVisible);
    programs.clear();
    EXPECT_TRUE(compositor->waitForNoWindows());
  }
}

// KWin shows the second one as "equal <2>".
TEST_F(SystemEventsOnKWinTest, KeepsEqualTitles) {
  start("Native", {"equal", "equal"});
  start("Xwayland", {"equal"}, WindowSystem::x11);
  const auto list = DesktopSupport::readWindows();
  ASSERT_TRUE(list) << list.error().message;
  std::vector<std::string> titles;
  std::ranges::transform(list->windows, std::back_inserter(titles), &Window::title);
  EXPECT_THAT(titles, ElementsAre("equal", "equal", "equal"));
}

}  // namespace
