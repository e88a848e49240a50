#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "Tests/ScriptableApps/FileManagersOnWayland.h"

namespace {

using TestSupport::Compositor;
using TestSupport::CompositorWindow;

TEST_F(FileManagersOnWaylandTest, ShowTheWindowsOfTwoProgramsTheTopmostFirst) {
  const std::string first = make("first");
  const std::string second = make("second one");
  const std::string third = make("third");
  const ChildProcess nautilus({"nautilus", "--new-window", first, second});
  const ChildProcess thunar({"thunar", third});
  awaitWatch(thunar, third);
  for (const char* title : {"first", "second one", "third - Thunar"})
    ASSERT_TRUE(compositor_->awaitWindow(title)) << title;
  EXPECT_TRUE(compositor_->focus("second one"));
  EXPECT_TRUE(compositor_->focus("third - Thunar"));
  EXPECT_TRUE(compositor_->focus("first"));
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(first + '/', third + '/', second + '/'));
  EXPECT_TRUE(compositor_->focus("second one"));
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(second + '/', first + '/', third + '/'));
  EXPECT_EQ(log, "");
}

// GNOME Shell tells the names that GTK's windows have on the bus.
TEST_F(FileManagersOnWaylandTest, ShowTheWindowsOfNautilusWithTheSameNameTheTopmostFirst) {
  const std::string first = make("first/same");
  const std::string second = make("second/same");
  const ChildProcess nautilus({"nautilus", "--new-window", first});
  const auto window = compositor_->awaitWindow("same");
  ASSERT_TRUE(window);
  EXPECT_EQ(TestSupport::run({"nautilus", "--new-window", second}), 0);
  ASSERT_TRUE(Compositor::waitUntil([&] {
    return std::ranges::count(compositor_->windows(), "same", &CompositorWindow::title) == 2 &&
           openPaths().value_or(std::vector<std::string>()).size() == 2;
  }));
  std::map<std::string, std::string> upperPaths;
  for (int change = 0; change < 2; ++change) {
    // The lower window becomes the upper one.
    EXPECT_TRUE(compositor_->focus("same"));
    const auto paths = openPaths().value();
    EXPECT_THAT(paths, shows({first, second}));
    upperPaths[compositor_->windows().back().id] = paths.front();
  }
  EXPECT_EQ(upperPaths.size(), 2U);
  EXPECT_EQ(upperPaths[window->id], first + '/');
}

}  // namespace
