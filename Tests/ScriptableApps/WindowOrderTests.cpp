#include <expected>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "ScriptableApps/Finder/WindowOrder.h"

namespace {

using DesktopSupport::Window;
using DesktopSupport::WindowID;
using DesktopSupport::WindowList;
using ScriptableApps::FileManager;
using ScriptableApps::FileManagerWindows;
using ScriptableApps::topmostFirst;
using testing::ElementsAre;

std::vector<WindowID> idsOf(const std::vector<Window>& windows) {
  std::vector<WindowID> ids;
  for (const Window& window : windows)
    ids.push_back(window.id);
  return ids;
}

/// The first location of each window, in their order on the screen.
std::vector<std::string> sorted(FileManagerWindows windows, const WindowList& screen) {
  placeOnScreen(windows, {.windows = topmostFirst(screen)});
  sortTopmostFirst(windows, screen);
  std::vector<std::string> locations;
  for (const auto& window : windows)
    locations.push_back(window.locations.front());
  return locations;
}

const std::vector<Window> three = {{.id = 1, .title = "a"}, {.id = 2, .title = "b"}, {.id = 3, .title = "c"}};

TEST(WindowOrder, IsTheStacks) {
  EXPECT_THAT(idsOf(topmostFirst({.windows = three, .stack = {2, 3, 1}, .active = 2})), ElementsAre(1, 3, 2));
  EXPECT_THAT(idsOf(topmostFirst({.windows = three, .stack = {2, 3}})), ElementsAre(3, 2, 1));
}

TEST(WindowOrder, BeginsWithTheActiveWindowIfThereIsNoStack) {
  EXPECT_THAT(idsOf(topmostFirst({.windows = three, .active = 2})), ElementsAre(2, 1, 3));
  EXPECT_THAT(idsOf(topmostFirst({.windows = three})), ElementsAre(1, 2, 3));
}

TEST(WindowOrder, IsThatOfTheWindowsWithTheTabsNames) {
  const FileManagerWindows reported = {
      {.locations = {"file:///b", "file:///d"}}, {.locations = {"file:///c"}}, {.locations = {"file:///a"}}};
  EXPECT_THAT(sorted(reported, {.windows = three, .stack = {1, 2, 3}}),
              ElementsAre("file:///c", "file:///b", "file:///a"));
  EXPECT_THAT(sorted(reported, {.windows = three, .active = 1}), ElementsAre("file:///a", "file:///b", "file:///c"));
}

/// The window on the screen that each reported one is.
std::vector<std::optional<WindowID>> placesOf(FileManagerWindows reported, const std::vector<Window>& windows) {
  placeOnScreen(reported, {.windows = windows});
  std::vector<std::optional<WindowID>> places;
  for (const auto& window : reported)
    places.push_back(window.id);
  return places;
}

TEST(WindowOrder, PlacesNoWindowIfTheTitlesLeaveADoubt) {
  const FileManagerWindows equal = {{.locations = {"file:///1/a"}}, {.locations = {"file:///2/a"}}};
  EXPECT_THAT(placesOf(equal, {{.id = 1, .title = "a"}, {.id = 2, .title = "x"}}),
              ElementsAre(std::nullopt, std::nullopt));
  const FileManagerWindows different = {{.locations = {"file:///a"}}, {.locations = {"file:///b"}}};
  EXPECT_THAT(placesOf(different, {{.id = 1, .title = "a"}, {.id = 2, .title = "a"}}),
              ElementsAre(std::nullopt, std::nullopt));
  EXPECT_THAT(placesOf(different, {{.id = 1, .title = "b"}, {.id = 2, .title = "x"}}), ElementsAre(std::nullopt, 1));
}

TEST(WindowOrder, IsTheReportedOneIfTheScreenIsUnknown) {
  FileManagerWindows reported = {{.locations = {"file:///b"}, .id = 2}, {.locations = {"file:///a"}, .id = 1}};
  sortTopmostFirst(reported, std::unexpected(DesktopSupport::DesktopError{"Unknown."}));
  EXPECT_EQ(reported.front().id, 2U);
}

TEST(WindowOrder, EndsWithTheWindowsThatAreNotOnTheScreen) {
  const FileManagerWindows reported = {{.locations = {"file:///d"}}, {.locations = {"file:///a"}}};
  EXPECT_THAT(sorted(reported, {.windows = three, .active = 2}), ElementsAre("file:///a", "file:///d"));
  EXPECT_THAT(sorted(reported, {.windows = three, .stack = {2, 3}}), ElementsAre("file:///a", "file:///d"));
}

TEST(WindowOrder, KnowsTheOnlyWindowWhateverItsTitle) {
  FileManagerWindows one = {{.locations = {"file:///shown"}}};
  placeOnScreen(one, {.windows = {{.id = 7, .title = "Work"}}});
  EXPECT_EQ(one.front().id, 7U);
  FileManagerWindows two = {{.locations = {"file:///shown"}}, {.locations = {"file:///other"}}};
  placeOnScreen(two, {.windows = {{.id = 7, .title = "Work"}}});
  EXPECT_FALSE(two.front().id) << "it may be the other one";
  placeOnScreen(one = {{.locations = {"file:///shown"}}}, {.windows = three});
  EXPECT_FALSE(one.front().id);
}

TEST(WindowOrder, IsTheReportedOneIfTheTitlesLeaveADoubt) {
  const std::vector<Window> windows = {{.id = 1, .title = "a"}, {.id = 2, .title = "a"}, {.id = 3, .title = "x"}};
  const FileManagerWindows reported = {
      {.locations = {"file:///1/a"}}, {.locations = {"file:///2/a"}}, {.locations = {"file:///x"}}};
  EXPECT_THAT(sorted(reported, {.windows = windows, .stack = {3, 2, 1}}),
              ElementsAre("file:///x", "file:///1/a", "file:///2/a"));
  const FileManagerWindows tabs = {{.locations = {"file:///1/a", "file:///x"}}, {.locations = {"file:///2/a"}}};
  EXPECT_THAT(sorted(tabs, {.windows = {{.id = 1, .title = "a"}}, .stack = {1}}),
              ElementsAre("file:///1/a", "file:///2/a"));
}

}  // namespace
