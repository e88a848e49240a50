#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "DesktopSupport/Windows/Wayland/Compositor.h"
#include "Tests/Support/TestCompositor.h"

namespace {

using DesktopSupport::Compositor;
using TestSupport::EnvironmentVariable;
using TestSupport::TemporaryFolder;
using TestSupport::TestCompositor;

TEST(Compositor, RunsIfItTakesConnections) {
  const TestCompositor server;
  Compositor compositor;
  EXPECT_TRUE(compositor.isRunning());
  EXPECT_FALSE(compositor.problem());
}

TEST(Compositor, IsConnectedToOnce) {
  TestCompositor server;
  server.start();
  Compositor compositor;
  EXPECT_TRUE(compositor.isRunning());
  EXPECT_FALSE(compositor.problem());
  EXPECT_NE(compositor.name(), "");
  EXPECT_TRUE(compositor.connection());
  EXPECT_TRUE(compositor.connection());
  EXPECT_EQ(server.clients(), 1);
}

TEST(Compositor, IsNamedByItsProgram) {
  const TestCompositor server;
  Compositor compositor;
  EXPECT_EQ(compositor.name(), std::filesystem::read_symlink("/proc/self/exe").filename());
}

TEST(Compositor, MayBeNamedByAPath) {
  const TestCompositor server;
  const EnvironmentVariable noFolder("XDG_RUNTIME_DIR", std::nullopt);
  const EnvironmentVariable path("WAYLAND_DISPLAY", server.socket());
  EXPECT_TRUE(Compositor().isRunning());
}

TEST(Compositor, IsTheFirstIfNoneIsNamed) {
  const TestCompositor server;
  const EnvironmentVariable noName("WAYLAND_DISPLAY", std::nullopt);
  EXPECT_FALSE(Compositor().isRunning());
  std::filesystem::create_symlink(server.socket(),
                                  std::filesystem::path(server.socket()).replace_filename("wayland-0"));
  EXPECT_TRUE(Compositor().isRunning());
  const EnvironmentVariable emptyName("WAYLAND_DISPLAY", "");
  EXPECT_TRUE(Compositor().isRunning());
}

TEST(Compositor, DoesNotRunWithoutASocket) {
  const TemporaryFolder folder;
  const EnvironmentVariable runtimeFolder("XDG_RUNTIME_DIR", folder.path());
  const EnvironmentVariable noName("WAYLAND_DISPLAY", std::nullopt);
  Compositor none;
  EXPECT_FALSE(none.isRunning());
  EXPECT_FALSE(none.problem());
  EXPECT_TRUE(none.connection().error().isAbsent);
  EXPECT_EQ(none.name(), "The compositor");

  const EnvironmentVariable name("WAYLAND_DISPLAY", "wayland-7");
  Compositor gone;
  EXPECT_FALSE(gone.isRunning());
  EXPECT_EQ(gone.problem(), "WAYLAND_DISPLAY names " + (folder.path() / "wayland-7").string() +
                                ", where no compositor answers: No such file or directory.");
}

TEST(Compositor, DoesNotRunIfItsSocketCannotBeFound) {
  const EnvironmentVariable noFolder("XDG_RUNTIME_DIR", std::nullopt);
  const EnvironmentVariable name("WAYLAND_DISPLAY", "wayland-0");
  EXPECT_EQ(Compositor().problem(), "WAYLAND_DISPLAY is set, but XDG_RUNTIME_DIR names no folder with its socket.");
  const EnvironmentVariable noName("WAYLAND_DISPLAY", std::nullopt);
  EXPECT_FALSE(Compositor().problem());
}

TEST(Compositor, DoesNotRunIfItsPathIsTooLong) {
  // The longest path of a socket has 107 bytes.
  for (const auto& [length, problem] : {std::pair(107, "No such file or directory."), {108, "File name too long."}}) {
    const EnvironmentVariable path("WAYLAND_DISPLAY", '/' + std::string(static_cast<std::size_t>(length) - 1, 'x'));
    Compositor compositor;
    EXPECT_FALSE(compositor.isRunning());
    EXPECT_TRUE(compositor.problem().value_or("").ends_with(problem)) << *compositor.problem();
  }
}

}  // namespace
