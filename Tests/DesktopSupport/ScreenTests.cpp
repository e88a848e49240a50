#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Screen/Screen.h"

namespace {

using namespace DesktopSupport;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr WindowSource silent = {.server = DisplayServer::x11,
                                 .feature = "test",
                                 .windows = [](Compositor&) -> std::expected<WindowList, DesktopError> {
                                   return std::unexpected(DesktopError{"Silent."});
                                 },
                                 .gtkWindows = [](Compositor&) { return std::vector<GTKWindowName>(); }};
constexpr WindowSource absent = {.server = DisplayServer::x11,
                                 .feature = "test",
                                 .windows = [](Compositor&) -> std::expected<WindowList, DesktopError> {
                                   return std::unexpected(DesktopError{"Absent."});
                                 },
                                 .gtkWindows = [](Compositor&) { return std::vector<GTKWindowName>(); }};
constexpr WindowSource one = {
    .server = DisplayServer::x11,
    .feature = "test",
    .windows = [](Compositor&) -> std::expected<WindowList, DesktopError> {
      return WindowList{.windows = {{.id = 1}}};
    },
    .gtkWindows = [](Compositor&) { return std::vector<GTKWindowName>{{.connection = ":1.1", .path = "/one"}}; }};
constexpr WindowSource none = {
    .server = DisplayServer::x11,
    .feature = "test",
    .windows = [](Compositor&) -> std::expected<WindowList, DesktopError> { return WindowList(); },
    .gtkWindows = [](Compositor&) { return std::vector<GTKWindowName>(); }};

TEST(Screen, HasTheWindowsOfTheFirstSourceThatTells) {
  const auto list = readWindows(std::array{silent, one, none});
  ASSERT_TRUE(list);
  ASSERT_EQ(list->windows.size(), 1U);
  EXPECT_EQ(list->windows.front().id, 1U);
}

TEST(Screen, HasNoWindowsIfTheFirstSourceThatTellsHasNone) {
  const auto list = readWindows(std::array{silent, none, one});
  ASSERT_TRUE(list);
  EXPECT_THAT(list->windows, IsEmpty());
}

TEST(Screen, IsUnknownIfNoSourceTells) {
  const auto list = readWindows(std::array{silent, absent});
  ASSERT_FALSE(list);
  EXPECT_EQ(list.error().message, "Absent.");
  EXPECT_FALSE(readWindows(std::span<const WindowSource>()));
}

TEST(Screen, HasTheGTKWindowsOfTheFirstSourceThatKnowsAny) {
  EXPECT_THAT(readGTKWindows(std::array{silent, none, one}), ElementsAre(GTKWindowName{":1.1", "/one"}));
  EXPECT_THAT(readGTKWindows(std::array{silent}), IsEmpty());
}

}  // namespace
