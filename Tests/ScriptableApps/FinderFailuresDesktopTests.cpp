// The Finder without a file manager, and with file managers that do not report which folders they show.

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/ScriptableApps/FinderTest.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestWindow.h"

namespace {

using namespace std::chrono_literals;
using AppleScript::ErrorNumber;
using ScriptableApps::Finder;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::FakeFileManager;
using TestSupport::FakeService;
using TestSupport::FinderTest;
using TestSupport::interfaceOwner;
using TestSupport::listFolders;
using TestSupport::openPaths;
using TestSupport::openPathsAndLog;
using TestSupport::otherFileManager;
using TestSupport::shortly;
using TestSupport::textOfScript;

void expectError(ErrorNumber number, const std::string& message, std::chrono::milliseconds patience = 60s) {
  const auto paths = openPaths(patience);
  ASSERT_FALSE(paths);
  EXPECT_EQ(paths.error().number, number);
  EXPECT_EQ(paths.error().message, "Finder got an error: " + message);
  EXPECT_EQ(paths.error().applicationName, "Finder");
}

void expectNotRunning() {
  expectError(ErrorNumber::notRunning, "Application isn’t running.");
}

/// The message about a file manager that does not report which folders it shows.
std::string doesNotReport(const std::string& program) {
  return program + " is running but does not report which folders it shows.";
}

/// The program that owns the file managers made here.
std::string ownProgram() {
  return std::filesystem::read_symlink("/proc/self/exe").filename();
}

/// A window of the file managers made here, so that they show something.
class ShownWindow {
 public:
  ShownWindow() {
    if (!window_.show())
      throw std::runtime_error("The window is not shown.");
  }

 private:
  TestSupport::TestDesktop desktop_;
  TestSupport::TestWindow window_{desktop_};
};

void expectDoesNotReport() {
  expectError(ErrorNumber::noSuchObject, doesNotReport(ownProgram()));
}

TEST_F(FinderTest, FindsAFileManagerBesideOneThatDoesNotReport) {
  const ShownWindow window;
  FakeFileManager owner;
  FakeFileManager other(otherFileManager);
  std::string log;
  other.has("{'OpenLocations': <[" + uri(a_) + "]>}");
  owner.has("@a{sv} {}");
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(a_ / ""));
  EXPECT_EQ(log, doesNotReport(ownProgram()) + '\n');
  owner.staysSilent();
  EXPECT_THAT(openPathsAndLog(log, shortly), ElementsAre(a_ / ""));
  EXPECT_THAT(log, testing::StartsWith(ownProgram() + " did not report which folders it shows: "));
  owner.answerUnchecked("GetAll", "('nonsense',)");
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(a_ / ""));
  EXPECT_THAT(log, testing::StartsWith(ownProgram() + " did not report which folders it shows: "));
}

TEST_F(FinderTest, LogsAFailureAsOneLine) {
  FakeFileManager owner;
  FakeFileManager other(otherFileManager);
  other.has("{'OpenLocations': <[" + uri(a_) + "]>}");
  owner.answer("GetAll", [](GDBusMethodInvocation* invocation) {
    g_dbus_method_invocation_return_dbus_error(invocation, "org.example.Error", "Two\nlines.");
  });
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(a_ / ""));
  EXPECT_EQ(log, ownProgram() + " did not report which folders it shows: Two lines.\n");
}

TEST_F(FinderTest, NamesAllFileManagersIfNoneReports) {
  const ShownWindow window;
  FakeFileManager owner;
  FakeFileManager other(otherFileManager);
  owner.has("@a{sv} {}");
  other.fails("org.example.Error");
  expectError(ErrorNumber::noSuchObject,
              doesNotReport(ownProgram()) + ' ' + ownProgram() + " did not report which folders it shows: No.");
}

TEST_F(FinderTest, KeepsWhatOneFileManagerReportedIfAnotherFails) {
  FakeFileManager owner;
  FakeFileManager other(otherFileManager);
  owner.has("{'OpenLocations': <[" + uri(a_) + "]>}");
  other.staysSilent();
  EXPECT_THAT(openPaths(shortly).value(), ElementsAre(a_ / ""));
}

TEST_F(FinderTest, IsNotRunningWithoutAFileManager) {
  expectNotRunning();
}

TEST_F(FinderTest, IsNotRunningWithoutABus) {
  const TestSupport::EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
  const TestSupport::EnvironmentVariable runtimeFolder("XDG_RUNTIME_DIR", std::nullopt);
  expectNotRunning();
}

TEST_F(FinderTest, SaysThatTheFileManagerDoesNotReport) {
  const ShownWindow window;
  FakeFileManager fileManager;
  for (const char* properties :
       {"@a{sv} {}", "{'OpenLocations': <'file:///'>, 'OpenWindowsWithLocations': <['file:///']>}"}) {
    fileManager.has(properties);
    expectDoesNotReport();
  }
  for (const char* error : {"org.freedesktop.DBus.Error.UnknownMethod", "org.freedesktop.DBus.Error.UnknownInterface",
                            "org.freedesktop.DBus.Error.UnknownObject", "org.freedesktop.DBus.Error.UnknownProperty",
                            "org.freedesktop.DBus.Error.NotSupported"}) {
    fileManager.fails(error);
    expectDoesNotReport();
  }
}

TEST_F(FinderTest, SaysThatAFileManagerWithMethodsAloneDoesNotReport) {
  const ShownWindow window;
  for (const char* interface : {"org.freedesktop.FileManager1", "org.example.Other"}) {
    const std::string description =
        std::string("<node><interface name='") + interface +
        "'><method name='ShowFolders'><arg type='as'/><arg type='s'/></method></interface></node>";
    const FakeService fileManager(interfaceOwner, "/org/freedesktop/FileManager1", description.c_str());
    expectDoesNotReport();
  }
}

TEST_F(FinderTest, SaysThatAFileManagerWithAnEmptyListAndAWindowDoesNotReport) {
  FakeFileManager fileManager("org.Nemo");
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow background(desktop);
  background.setAtom("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DESKTOP");
  ASSERT_TRUE(background.show());
  fileManager.has("{'OpenLocations': <@as []>}");
  EXPECT_THAT(openPaths().value(), IsEmpty()) << "the desktop's icons are not a window";
  TestSupport::TestWindow window(desktop);
  ASSERT_TRUE(window.show());
  expectDoesNotReport();
  fileManager.has("{'OpenLocations': <[" + uri(a_) + "]>}");
  EXPECT_THAT(openPaths().value(), ElementsAre(a_ / ""));
  fileManager.has("{'OpenWindowsWithLocations': <@a{sas} {}>, 'OpenLocations': <@as []>}");
  EXPECT_THAT(openPaths().value(), IsEmpty()) << "its windows show no folder";
}

TEST_F(FinderTest, SaysThatAFileManagerWithAnEmptyListDoesNotReportIfItMayHaveAWindow) {
  FakeFileManager fileManager("org.Nemo");
  fileManager.has("{'OpenLocations': <@as []>}");
  const TestSupport::EnvironmentVariable noDisplay("DISPLAY", std::nullopt);
  expectDoesNotReport();
}

TEST_F(FinderTest, KnowsFileManagersByTheClassesOfTheirWindows) {
  const TestSupport::TestDesktop desktop;
  for (const char* windowClass : {"org.gnome.Nautilus", "dolphin", "org.kde.dolphin", "Nemo", "Caja", "Thunar",
                                  "org.xfce.thunar", "Pcmanfm", "pcmanfm-qt", "SpaceFM"}) {
    TestSupport::TestWindow window(desktop);
    ASSERT_TRUE(window.setClass("instance", windowClass).show());
    SCOPED_TRACE(windowClass);
    expectDoesNotReport();
  }
  for (const char* windowClass : {"", "org.gnome.Nautilus2", "Thunar-settings"}) {
    TestSupport::TestWindow window(desktop);
    ASSERT_TRUE(window.setClass("thunar", windowClass).show());
    SCOPED_TRACE(windowClass);
    expectNotRunning();
  }
}

TEST_F(FinderTest, IsNotRunningForTheDesktopsIcons) {
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow background(desktop);
  background.setClass("pcmanfm", "Pcmanfm").setAtom("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DESKTOP");
  ASSERT_TRUE(background.show());
  expectNotRunning();
}

TEST_F(FinderTest, HasNoWindowsIfAFileManagerThatDoesNotReportHasNone) {
  FakeFileManager fileManager;
  fileManager.has("@a{sv} {}");
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), IsEmpty());
  EXPECT_EQ(log, "");
}

TEST_F(FinderTest, IsNotRunningIfTheFileManagerQuitsMeanwhile) {
  FakeFileManager fileManager;
  fileManager.answer("GetAll", [&](GDBusMethodInvocation* invocation) {
    fileManager.disappear();
    g_object_unref(invocation);
  });
  expectNotRunning();
}

TEST_F(FinderTest, GivesUpOnAFileManagerThatStaysSilent) {
  FakeFileManager fileManager;
  fileManager.staysSilent();
  expectError(ErrorNumber::timedOut, "AppleEvent timed out.", shortly);
}

TEST_F(FinderTest, WaitsForSecondsAndNotForMinutes) {
  FakeFileManager fileManager;
  fileManager.staysSilent();
  const auto before = std::chrono::steady_clock::now();
  Finder finder;
  EXPECT_FALSE(finder.open());
  EXPECT_LT(std::chrono::steady_clock::now() - before, 30s);
}

TEST_F(FinderTest, FailsIfTheFileManagerAnswersSomethingElse) {
  FakeFileManager fileManager;
  for (const char* nonsense : {"('nonsense',)", "()", "(@a{sv} {}, 1)", "({'OpenLocations': 'file:///'},)"}) {
    fileManager.answerUnchecked("GetAll", nonsense);
    const auto paths = openPaths();
    ASSERT_FALSE(paths) << nonsense;
    EXPECT_EQ(paths.error().number, ErrorNumber::genericError) << nonsense;
  }
}

TEST_F(FinderTest, FailsIfTheFileManagerFails) {
  FakeFileManager fileManager;
  fileManager.fails("org.example.Error");
  expectError(ErrorNumber::genericError, "No.");
  fileManager.fails("org.freedesktop.DBus.Error.AccessDenied");
  expectError(ErrorNumber::accessNotAllowed, "No.");
}

TEST_F(FinderTest, FailsTheScriptIfNoFileManagerRuns) {
  EXPECT_EQ(textOfScript(listFolders), "-600: Finder got an error: Application isn’t running.");
}

}  // namespace
