#include <sys/inotify.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Tests/ScriptableApps/FakeDolphin.h"
#include "Tests/ScriptableApps/FileManagersOnWayland.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/WindowPrograms.h"

namespace {

using TestSupport::FakeDolphin;

// sway tells no processes.
TEST_F(FileManagersOnWaylandTest, SayThatAProgramWithoutANameOnTheBusDoesNotReport) {
  const auto windows = TestSupport::startGTKWindows("pcmanfm", {"shown"});
  const auto paths = openPaths();
  ASSERT_FALSE(paths);
  EXPECT_EQ(paths.error().message,
            "Finder got an error: pcmanfm is running but does not report which folders it shows.");
}

// This process counts as the program whose name it has on the bus.
TEST_F(FileManagersOnWaylandTest, HaveTheProcessesThatHaveTheirNamesOnTheBus) {
  const std::string shown = make("shown");
  const DesktopSupport::FileDescriptor watches(inotify_init1(IN_CLOEXEC));
  ASSERT_GE(inotify_add_watch(watches.number(), shown.c_str(), IN_CREATE), 0);
  for (const auto& [application, name] : {std::pair("org.gnome.Nautilus", "org.gnome.Nautilus"),
                                          {"nemo", "org.Nemo"},
                                          {"caja", "org.mate.Caja"},
                                          {"thunar", "org.xfce.Thunar"}}) {
    const TestSupport::FakeService program(name, "/none", "<node><interface name='org.example.None'/></node>");
    const auto windows = TestSupport::startGTKWindows(application, {"shown"});
    std::string log;
    EXPECT_THAT(openPathsAndLog(log), shows({shown})) << application;
    EXPECT_EQ(log, "") << application;
  }
}

TEST_F(FileManagersOnWaylandTest, SayThatNoneReportsWithoutABus) {
  const std::string shown = make("shown");
  const ChildProcess thunar({"thunar", shown});
  awaitWatch(thunar, shown);
  ASSERT_TRUE(compositor_->awaitWindow("shown - Thunar"));
  const TestSupport::EnvironmentVariable noBus("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
  const auto paths = openPaths();
  ASSERT_FALSE(paths);
  EXPECT_EQ(paths.error().message,
            "Finder got an error: thunar is running but does not report which folders it shows.");
}

TEST_F(FileManagersOnWaylandTest, ListTheDolphinsThatAnswer) {
  const auto windows = TestSupport::startGTKWindows("org.kde.dolphin", {"/ — Dolphin", "two — Dolphin"});
  FakeDolphin one(1);
  FakeDolphin two(2);
  one.fails();
  two.shows({"file:///"});
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), ElementsAre("/"));
  EXPECT_EQ(log, "dolphin does not report which folder it shows in 1 of its 2 windows.\n");
}

TEST_F(FileManagersOnWaylandTest, WaitForOneSilentDolphinAndNotForTheOthers) {
  const auto windows = TestSupport::startGTKWindows("org.kde.dolphin", {"one — Dolphin", "two — Dolphin"});
  FakeDolphin one(1);
  FakeDolphin two(2);
  one.staysSilent();
  two.staysSilent();
  const auto paths = openPaths(TestSupport::shortly);
  ASSERT_FALSE(paths);
  EXPECT_EQ(paths.error().number, AppleScript::ErrorNumber::timedOut);
  EXPECT_EQ(one.calls().size() + two.calls().size(), 1U);
}

}  // namespace
