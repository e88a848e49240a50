#include <array>
#include <atomic>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "DesktopSupport/Screen/Screen.h"
#include "DesktopSupport/System/FileDescriptor.h"
#include "DesktopSupport/Windows/Wayland/Protocols.h"
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

List incomplete(Compositor&) {
  return WindowList{.windows = {{.id = 1, .pid = 10}}, .isComplete = false};
}

std::vector<GTKWindowName> oneName(Compositor&) {
  return {{.connection = ":1.1", .path = "/one"}};
}

std::vector<GTKWindowName> noName(Compositor&) {
  return {};
}

constexpr WindowSource source(DisplayServer server, List (*windows)(Compositor&),
                              std::vector<GTKWindowName> (*names)(Compositor&) = nullptr) {
  return {.server = server, .feature = "test", .windows = windows, .gtkWindows = names, .compositor = ""};
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

// One compositor runs inside another one, which answers on the session bus.
TEST(Screen, IsNotThatOfAnotherCompositor) {
  const TestSupport::TestCompositor server;
  const std::string own = std::filesystem::read_symlink("/proc/self/exe").filename();
  const std::string beginning = own.substr(0, 5);
  WindowSource outer = source(DisplayServer::wayland, oneWindow, oneName);
  outer.compositor = "gnome-shell";
  const WindowSource inner = source(DisplayServer::wayland, noWindow);
  EXPECT_THAT(readWindows(std::array{outer, inner})->windows, IsEmpty());
  EXPECT_THAT(readGTKWindows(std::array{outer}), IsEmpty());
  outer.compositor = beginning.c_str();
  EXPECT_EQ(readWindows(std::array{outer, inner})->windows.size(), 1U);
  EXPECT_EQ(readGTKWindows(std::array{outer}).size(), 1U);
}

TEST(Screen, IsThatOfTheXServerIfTheCompositorIsGone) {
  const TestSupport::EnvironmentVariable gone("WAYLAND_DISPLAY", "/nowhere/wayland-0");
  constexpr WindowSource onWayland = source(DisplayServer::wayland, noWindow);
  const auto list = readWindows(std::array{onWayland, one});
  ASSERT_TRUE(list);
  EXPECT_EQ(list->windows.size(), 1U);
  EXPECT_THAT(list->problems, ElementsAre(testing::HasSubstr("/nowhere/wayland-0, where no compositor answers")));
}

/// An X server that has a client and takes no more. DISPLAY names it during the lifetime of this object.
class FullXServer {
 public:
  FullXServer() {
    const std::string number = std::to_string(getpid());
    display_.emplace("DISPLAY", ':' + number);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    // The name is in the abstract namespace, which begins with a zero.
    const std::string name = "/tmp/.X11-unix/X" + number;
    std::memcpy(address.sun_path + 1, name.data(), name.size());
    const auto* const any = reinterpret_cast<const sockaddr*>(&address);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    const FileDescriptor listening(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (bind(listening.number(), any, size) != 0 || listen(listening.number(), 1) != 0 ||
        connect(client_.number(), any, size) != 0)
      throw std::runtime_error("no socket of an X server");
    server_.emplace(accept4(listening.number(), nullptr, nullptr, SOCK_CLOEXEC));
  }

 private:
  std::optional<TestSupport::EnvironmentVariable> display_;
  FileDescriptor client_{socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
  std::optional<FileDescriptor> server_;
};

TEST(Screen, IsReadInTheWayThatTellsMost) {
  TestSupport::TestCompositor server;
  std::atomic<int> lists = 0;
  server.offer(ext_foreign_toplevel_list_v1_interface, 1, [&](wl_resource*) { ++lists; });
  server.offer(zwlr_foreign_toplevel_manager_v1_interface, 3, [](wl_resource*) {});
  server.start();
  const auto list = readWindows();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_THAT(list->windows, IsEmpty());
  EXPECT_EQ(lists, 0);
}

// What `work` returns in a process that is in a PID namespace of its own.
int inANamespace(int (*work)()) {
  const pid_t outer = fork();
  if (outer == 0) {
    if (unshare(geteuid() == 0 ? CLONE_NEWPID : CLONE_NEWUSER | CLONE_NEWPID) != 0)
      _exit(100);
    const pid_t inner = fork();
    if (inner == 0)
      _exit(work());
    int status = 0;
    waitpid(inner, &status, 0);
    _exit(WIFEXITED(status) ? WEXITSTATUS(status) : 101);
  }
  int status = 0;
  waitpid(outer, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 102;
}

TEST(Screen, HasNoProcessesThatTheCompositorNumbersInAnotherWay) {
  const TestSupport::TestCompositor compositor;
  static constexpr std::array sources = {source(DisplayServer::wayland, oneWindow)};
  const auto numberOfTheProcess = [] {
    const auto list = readWindows(sources);
    return list && list->windows.size() == 1 ? list->windows.front().pid.value_or(0) : -1;
  };
  EXPECT_EQ(numberOfTheProcess(), 10);
  EXPECT_EQ(inANamespace(numberOfTheProcess), 0);
}

TEST(Screen, SaysIfTheWindowsOfX11ProgramsAreUnknown) {
  const TestSupport::TestCompositor server;
  const FullXServer x11;
  const auto list = readWindows(std::array{source(DisplayServer::wayland, incomplete)});
  ASSERT_TRUE(list);
  EXPECT_EQ(list->windows.size(), 1U);
  EXPECT_THAT(list->problems, ElementsAre("The windows of X11 programs could not be asked about: "
                                          "The X display cannot be opened."));
}

TEST(Screen, AsksNoXServerIfTheCompositorTellsEverything) {
  const TestSupport::TestCompositor server;
  const FullXServer x11;
  const auto list = readWindows(std::array{source(DisplayServer::wayland, oneWindow)});
  ASSERT_TRUE(list);
  EXPECT_THAT(list->problems, IsEmpty());
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
