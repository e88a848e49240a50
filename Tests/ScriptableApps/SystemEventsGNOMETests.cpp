#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "Tests/ScriptableApps/SystemEventsOnWayland.h"

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

TEST_F(SystemEventsOnWaylandTest, HasTitlesWithAnyCharacters) {
  const std::string title = "\"one\" 'two' \\u0041 \\ {<$>} %s ](\x01\n\t\x7f) \u00fc \u2028 \U0001F600";
  start("Native", {title});
  const auto windows = DesktopSupport::readWindows();
  ASSERT_TRUE(windows) << windows.error().message;
  ASSERT_EQ(windows->windows.size(), 1U);
  EXPECT_EQ(windows->windows.front().title, title);
}

// An editor with a window for each file, called "<file> - Mousepad".
TEST_F(SystemEventsOnWaylandTest, HasTheNamesOfGTKWindowsTopmostFirst) {
  const TestSupport::TemporaryFolder folder;
  const std::string first = folder.write("first", "");
  const std::string second = folder.write("second", "");
  programs.emplace_back(std::vector<std::string>{"mousepad", "--opening-mode=window", first, second});
  // A window is in front once the Shell has shown it.
  EXPECT_TRUE(TestSupport::Compositor::waitUntil([&] {
    const auto windows = compositor->windows();
    return std::ranges::any_of(windows, [&](const TestSupport::CompositorWindow& window) {
      return window.isFocused && window.title.starts_with(second);
    });
  }));
  const auto pathInFront = [&](const std::string& file) -> std::string {
    EXPECT_TRUE(compositor->focus(file + " - Mousepad"));
    const auto windows = DesktopSupport::readGTKWindows();
    EXPECT_THAT(windows, testing::SizeIs(2));
    return windows.empty() ? "" : windows.front().path;
  };
  const auto pathOfFirst = pathInFront(first);
  const auto pathOfSecond = pathInFront(second);
  EXPECT_NE(pathOfFirst, pathOfSecond);
  EXPECT_EQ(pathInFront(first), pathOfFirst);
}

}  // namespace
