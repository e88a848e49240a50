#include <array>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Screen/Screen.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TestCompositor.h"

namespace {

using namespace DesktopSupport;
using testing::ElementsAre;
using testing::IsEmpty;

using List = std::expected<WindowList, DesktopError>;

List silence(Compositor&) {
  return std::unexpected(DesktopError{"Silent."});
}

List absence(Compositor&) {
  return std::unexpected(DesktopError{.message = "Absent.", .isAbsent = true});
}

List oneWindow(Compositor&) {
  return WindowList{.windows = {{.id = 1, .pid = 10}}};
}

List noWindow(Compositor&) {
  return WindowList();
}

std::vector<GTKWindowName> oneName(Compositor&) {
  return {{.connection = ":1.1", .path = "/one"}};
}

std::vector<GTKWindowName> noName(Compositor&) {
  return {};
}

constexpr WindowSource source(DisplayServer server, List (*windows)(Compositor&),
                              std::vector<GTKWindowName> (*names)(Compositor&) = nullptr) {
  return {.server = server, .feature = "test", .windows = windows, .gtkWindows = names};
}

constexpr WindowSource silent = source(DisplayServer::x11, silence, noName);
constexpr WindowSource absent = source(DisplayServer::x11, absence);
constexpr WindowSource one = source(DisplayServer::x11, oneWindow, oneName);
constexpr WindowSource none = source(DisplayServer::x11, noWindow);

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
  EXPECT_EQ(list.error().message, "Silent.");
  EXPECT_EQ(readWindows(std::array{absent}).error().message, "No source of windows is known.");
}

TEST(Screen, HasTheGTKWindowsOfTheFirstSourceThatKnowsAny) {
  EXPECT_THAT(readGTKWindows(std::array{silent, none, one}), ElementsAre(GTKWindowName{":1.1", "/one"}));
  EXPECT_THAT(readGTKWindows(std::array{silent}), IsEmpty());
}

TEST(Screen, SaysWhichSourcesFailedBefore) {
  const auto list = readWindows(std::array{absent, silent, silent, one});
  ASSERT_TRUE(list);
  EXPECT_THAT(list->problems, ElementsAre("Silent."));
}

TEST(Screen, IsThatOfTheCompositorIfOneRuns) {
  const TestSupport::TestCompositor server;
  constexpr WindowSource onWayland = source(DisplayServer::wayland, oneWindow, oneName);
  const auto list = readWindows(std::array{none, onWayland});
  ASSERT_TRUE(list);
  EXPECT_EQ(list->windows.size(), 1U);
  EXPECT_THAT(readGTKWindows(std::array{silent, onWayland}), ElementsAre(GTKWindowName{":1.1", "/one"}));
  EXPECT_THAT(readGTKWindows(std::array{one}), IsEmpty());
}

TEST(Screen, IsThatOfTheXServerIfTheCompositorIsGone) {
  const TestSupport::EnvironmentVariable gone("WAYLAND_DISPLAY", "/nowhere/wayland-0");
  constexpr WindowSource onWayland = source(DisplayServer::wayland, noWindow);
  const auto list = readWindows(std::array{onWayland, one});
  ASSERT_TRUE(list);
  EXPECT_EQ(list->windows.size(), 1U);
  EXPECT_THAT(list->problems, ElementsAre(testing::HasSubstr("/nowhere/wayland-0, where no compositor answers")));
}

TEST(Screen, IsUnknownIfACompositorWithoutX11ProgramsFailsToTell) {
  const TestSupport::TestCompositor server;
  const auto list = readWindows(std::array{source(DisplayServer::wayland, silence)});
  ASSERT_FALSE(list);
  EXPECT_EQ(list.error().message, "Silent.");
}

TEST(Screen, IsUnknownIfTheCompositorTellsNobody) {
  TestSupport::TestCompositor server;
  server.start();
  const auto list = readWindows();
  ASSERT_FALSE(list);
  const std::string program = std::filesystem::read_symlink("/proc/self/exe").filename();
  EXPECT_THAT(list.error().message,
              testing::StartsWith(program + " does not tell other programs about its windows: it has none of "));
  for (const WindowSource& source : windowSources())
    EXPECT_EQ(list.error().message.contains(source.feature), source.server == DisplayServer::wayland);
}

}  // namespace
