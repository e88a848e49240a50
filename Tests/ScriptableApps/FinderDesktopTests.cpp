#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "ScriptableApps/Finder/Finder.h"
#include "ScriptableApps/Finder/FinderObjects.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestWindow.h"

namespace {

using namespace std::chrono_literals;
using AppleScript::ErrorNumber;
using AppleScript::Result;
using ScriptableApps::Finder;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::FakeService;
using TestSupport::listFolders;
using TestSupport::textOfScript;

constexpr const char* interfaceOwner = "org.freedesktop.FileManager1";
constexpr const char* otherFileManager = "org.gnome.Nautilus";

/// A file manager that says what properties it has of org.freedesktop.FileManager1.
class FakeFileManager : public FakeService {
 public:
  explicit FakeFileManager(const char* name = interfaceOwner)
      : FakeService(name, "/org/freedesktop/FileManager1", R"(
          <node>
            <interface name="org.freedesktop.DBus.Properties">
              <method name="GetAll"><arg type="s"/><arg type="a{sv}" direction="out"/></method>
            </interface>
          </node>)") {}

  void has(const std::string& properties) { answer("GetAll", '(' + properties + ",)"); }
  void fails(const char* error) {
    answer("GetAll", [error](GDBusMethodInvocation* invocation) {
      g_dbus_method_invocation_return_dbus_error(invocation, error, "No.");
    });
  }
  void staysSilent() {
    answer("GetAll", [](GDBusMethodInvocation* invocation) { g_object_unref(invocation); });
  }
};

/// How long to wait for a program that stays silent: longer than others need for an answer on a busy machine.
constexpr std::chrono::milliseconds shortly = 2s;

Result<std::vector<std::string>> openPaths(std::chrono::milliseconds patience = 60s) {
  Finder finder(patience);
  const auto root = finder.open();
  if (!root)
    return std::unexpected(root.error());
  std::vector<std::string> paths;
  for (const auto& window : static_cast<const ScriptableApps::FinderRoot&>(**root).windows())
    paths.push_back(window.folder().path);
  return paths;
}

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

/// What a file manager is told to be that doesn't tell what it shows.
std::string isSilent(const std::string& program) {
  return program + " is running but does not tell what it shows.";
}

/// The program behind the file managers made here.
std::string ownProgram() {
  return std::filesystem::read_symlink("/proc/self/exe").filename();
}

void expectSilent() {
  expectError(ErrorNumber::noSuchObject, isSilent(ownProgram()));
}

/// The paths, with what is written to the log while they are asked for in `log`.
std::vector<std::string> openPathsAndLog(std::string& log, std::chrono::milliseconds patience = 60s) {
  testing::internal::CaptureStderr();
  const auto paths = openPaths(patience);
  log = testing::internal::GetCapturedStderr();
  return paths.value_or(std::vector<std::string>{paths ? "" : paths.error().message});
}

// The connection that has a name on the bus.
std::string ownerOf(const char* name) {
  return DesktopSupport::BusDaemon(*DesktopSupport::SessionBus::connect(), 60s).ownerOf(name).value_or("none");
}

class FinderTest : public testing::Test {
 protected:
  FinderTest() {
    for (const auto* folder : {&a_, &b_, &c_})
      std::filesystem::create_directory(*folder);
  }

  static std::string uri(const std::filesystem::path& folder) { return "'file://" + folder.string() + '\''; }

  TestSupport::TemporaryFolder folder_;
  std::filesystem::path a_ = folder_.path() / "a";
  std::filesystem::path b_ = folder_.path() / "b";
  std::filesystem::path c_ = folder_.path() / "c";
};

TEST_F(FinderTest, HasAWindowForEachTabOfEachWindowInTheOrderTold) {
  FakeFileManager fileManager;
  fileManager.has("{'OpenWindowsWithLocations': <{'/window/2': [" + uri(c_) + ", " + uri(a_) + "], '/window/1': [" +
                  uri(b_) + "]}>, 'OpenLocations': <[" + uri(a_) + "]>}");
  EXPECT_THAT(openPaths().value(), ElementsAre(c_ / "", a_ / "", b_ / ""));
  EXPECT_THAT(fileManager.calls(), ElementsAre("GetAll('org.freedesktop.FileManager1',)"));
}

TEST_F(FinderTest, HasTheTabsOfTheTopmostWindowFirst) {
  FakeFileManager fileManager;
  FakeFileManager other(otherFileManager);
  fileManager.has("{'OpenWindowsWithLocations': <{'/window/1': [" + uri(a_) + "], '/window/2': [" + uri(b_) + "]}>}");
  other.has("{'OpenWindowsWithLocations': <{'/window/1': [" + uri(c_) + "]}>}");
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow shown(desktop);
  shown.setText("_GTK_UNIQUE_BUS_NAME", ownerOf(interfaceOwner)).setText("_GTK_WINDOW_OBJECT_PATH", "/window/2");
  ASSERT_TRUE(shown.show());
  TestSupport::TestWindow topmost(desktop);
  topmost.setText("_GTK_UNIQUE_BUS_NAME", ownerOf(otherFileManager)).setText("_GTK_WINDOW_OBJECT_PATH", "/window/1");
  ASSERT_TRUE(topmost.show());
  ASSERT_TRUE(desktop.waitUntil([&] { return desktop.stackedClients().back() == topmost.id(); }));
  EXPECT_THAT(openPaths().value(), ElementsAre(c_ / "", b_ / "", a_ / "")) << "the X server does not know the last one";
}

TEST_F(FinderTest, HasTheLocationsWhereTheFileManagerTellsNoWindows) {
  FakeFileManager fileManager;
  const std::string locations = "'OpenLocations': <[" + uri(b_) + ", " + uri(a_) + "]>";
  for (const char* windows : {"", "'OpenWindowsWithLocations': <'none'>, ", "'OpenWindowsWithLocations': <7>, "}) {
    fileManager.has(std::string("{") + windows + locations + '}');
    EXPECT_THAT(openPaths().value(), ElementsAre(b_ / "", a_ / "")) << windows;
  }
}

TEST_F(FinderTest, HasNoWindowsWhereTheFileManagerHasNone) {
  FakeFileManager fileManager;
  for (const char* properties :
       {"{'OpenWindowsWithLocations': <@a{sas} {}>, 'OpenLocations': <@as []>}",
        "{'OpenWindowsWithLocations': <{'/window/1': @as []}>}", "{'OpenLocations': <@as []>}"}) {
    fileManager.has(properties);
    EXPECT_THAT(openPaths().value(), IsEmpty()) << properties;
  }
}

TEST_F(FinderTest, LeavesOutWhatIsNoFolder) {
  FakeFileManager fileManager;
  fileManager.has(
      "{'OpenLocations': <['trash:///', 'recent:///', 'sftp://nowhere.invalid/', 'rubbish', '', 'file:///%', " +
      uri(folder_.path() / "none") + ", " + uri(a_) + "]>}");
  EXPECT_THAT(openPaths().value(), ElementsAre(a_ / ""));
}

TEST_F(FinderTest, AsksEveryFileManagerThatRuns) {
  FakeFileManager owner;
  FakeFileManager other(otherFileManager);
  owner.has("{'OpenLocations': <[" + uri(b_) + "]>}");
  other.has("{'OpenLocations': <[" + uri(a_) + "]>}");
  EXPECT_THAT(openPaths().value(), ElementsAre(b_ / "", a_ / ""));
}

TEST_F(FinderTest, FindsAFileManagerBesideOneThatDoesNotTell) {
  FakeFileManager owner;
  FakeFileManager other(otherFileManager);
  std::string log;
  other.has("{'OpenLocations': <[" + uri(a_) + "]>}");
  owner.has("@a{sv} {}");
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(a_ / ""));
  EXPECT_EQ(log, isSilent(ownProgram()) + '\n');
  owner.staysSilent();
  EXPECT_THAT(openPathsAndLog(log, shortly), ElementsAre(a_ / ""));
  EXPECT_THAT(log, testing::StartsWith(ownProgram() + " has not told what it shows: "));
  owner.answerUnchecked("GetAll", "('nonsense',)");
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(a_ / ""));
  EXPECT_THAT(log, testing::StartsWith(ownProgram() + " has not told what it shows: "));
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
  EXPECT_EQ(log, ownProgram() + " has not told what it shows: Two lines.\n");
}

TEST_F(FinderTest, TellsOfAllFileManagersWhereNoneTells) {
  FakeFileManager owner;
  FakeFileManager other(otherFileManager);
  owner.has("@a{sv} {}");
  other.fails("org.example.Error");
  expectError(ErrorNumber::noSuchObject,
              isSilent(ownProgram()) + ' ' + ownProgram() + " has not told what it shows: No.");
}

TEST_F(FinderTest, KeepsWhatOneFileManagerToldWhereAnotherFails) {
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

TEST_F(FinderTest, SaysThatTheFileManagerDoesNotTell) {
  FakeFileManager fileManager;
  for (const char* properties :
       {"@a{sv} {}", "{'OpenLocations': <'file:///'>, 'OpenWindowsWithLocations': <['file:///']>}"}) {
    fileManager.has(properties);
    expectSilent();
  }
  for (const char* error : {"org.freedesktop.DBus.Error.UnknownMethod", "org.freedesktop.DBus.Error.UnknownInterface",
                            "org.freedesktop.DBus.Error.UnknownObject", "org.freedesktop.DBus.Error.UnknownProperty",
                            "org.freedesktop.DBus.Error.NotSupported"}) {
    fileManager.fails(error);
    expectSilent();
  }
}

TEST_F(FinderTest, SaysThatAFileManagerWithMethodsAloneDoesNotTell) {
  for (const char* interface : {"org.freedesktop.FileManager1", "org.example.Other"}) {
    const std::string description =
        std::string("<node><interface name='") + interface +
        "'><method name='ShowFolders'><arg type='as'/><arg type='s'/></method></interface></node>";
    const FakeService fileManager(interfaceOwner, "/org/freedesktop/FileManager1", description.c_str());
    expectSilent();
  }
}

TEST_F(FinderTest, SaysThatAFileManagerWithAnEmptyListAndAWindowDoesNotTell) {
  FakeFileManager fileManager("org.Nemo");
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow background(desktop);
  background.setAtom("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DESKTOP");
  ASSERT_TRUE(background.show());
  fileManager.has("{'OpenLocations': <@as []>}");
  EXPECT_THAT(openPaths().value(), IsEmpty()) << "the desktop's icons are no window";
  TestSupport::TestWindow window(desktop);
  ASSERT_TRUE(window.show());
  expectSilent();
  fileManager.has("{'OpenLocations': <[" + uri(a_) + "]>}");
  EXPECT_THAT(openPaths().value(), ElementsAre(a_ / ""));
  fileManager.has("{'OpenWindowsWithLocations': <@a{sas} {}>, 'OpenLocations': <@as []>}");
  EXPECT_THAT(openPaths().value(), IsEmpty()) << "its windows are those that show no folder";
}

TEST_F(FinderTest, SaysThatAFileManagerWithAnEmptyListDoesNotTellWhereItMayHaveAWindow) {
  FakeFileManager fileManager("org.Nemo");
  fileManager.has("{'OpenLocations': <@as []>}");
  const TestSupport::EnvironmentVariable noDisplay("DISPLAY", std::nullopt);
  expectSilent();
}

TEST_F(FinderTest, AsksAFileManagerThatIsOnTheBusOnce) {
  FakeFileManager fileManager;
  fileManager.has("{'OpenLocations': <[" + uri(a_) + "]>}");
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow window(desktop);
  window.setClass("thunar", "Thunar");
  ASSERT_TRUE(window.show());
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(a_ / ""));
  EXPECT_EQ(log, "");
}

TEST_F(FinderTest, IsNotRunningForTheDesktopsIcons) {
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow background(desktop);
  background.setClass("pcmanfm", "Pcmanfm").setAtom("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DESKTOP");
  ASSERT_TRUE(background.show());
  expectNotRunning();
}

TEST_F(FinderTest, LeavesOutAFolderWhosePathIsNotOneLineAndLogsIt) {
  const auto folder = folder_.path() / "two\nlines";
  std::filesystem::create_directory(folder);
  FakeFileManager fileManager;
  fileManager.has("{'OpenLocations': <['file://" + folder_.path().string() + "/two%0Alines', " + uri(a_) +
                  ", 'trash:///']>}");
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(a_ / ""));
  EXPECT_EQ(log,
            "The folder " + folder_.path().string() + "/two lines is left out: its path is not one line of text.\n");
}

TEST_F(FinderTest, IsNotRunningWhereTheFileManagerQuitsMeanwhile) {
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

TEST_F(FinderTest, FailsWhereTheFileManagerAnswersSomethingElse) {
  FakeFileManager fileManager;
  for (const char* nonsense : {"('nonsense',)", "()", "(@a{sv} {}, 1)", "({'OpenLocations': 'file:///'},)"}) {
    fileManager.answerUnchecked("GetAll", nonsense);
    const auto paths = openPaths();
    ASSERT_FALSE(paths) << nonsense;
    EXPECT_EQ(paths.error().number, ErrorNumber::genericError) << nonsense;
  }
}

TEST_F(FinderTest, FailsWhereTheFileManagerFails) {
  FakeFileManager fileManager;
  fileManager.fails("org.example.Error");
  expectError(ErrorNumber::genericError, "No.");
  fileManager.fails("org.freedesktop.DBus.Error.AccessDenied");
  expectError(ErrorNumber::accessNotAllowed, "No.");
}

TEST_F(FinderTest, AnswersTheScriptThatListsFolders) {
  FakeFileManager fileManager;
  fileManager.has("{'OpenWindowsWithLocations': <{'/window/1': [" + uri(b_) + ", 'trash:///', " + uri(a_) + "]}>}");
  EXPECT_EQ(textOfScript(listFolders), "b\n" + b_.string() + "/\na\n" + a_.string() + "/\n");
  EXPECT_EQ(textOfScript("tell application \"Finder\" to name of every Finder window"), "ba");
  EXPECT_EQ(textOfScript("tell application \"Finder\" to POSIX path of (target of window \"a\" as alias)"),
            a_.string() + '/');
  fileManager.has("{'OpenLocations': <@as []>}");
  EXPECT_EQ(textOfScript(listFolders), "");
}

TEST_F(FinderTest, FailsTheScriptWhereNoFileManagerRuns) {
  EXPECT_EQ(textOfScript(listFolders), "-600: Finder got an error: Application isn’t running.");
}

TEST_F(FinderTest, CopesWithManyLocations) {
  FakeFileManager fileManager;
  std::string locations = "''";
  for (int count = 0; count < 10000; ++count)
    locations += ", " + uri(a_);
  fileManager.has("{'OpenLocations': <[" + locations + "]>}");
  EXPECT_EQ(openPaths().value().size(), 10000U);
}

// Places of a made-up kind, of which one is mounted.
class MountedPlacesTest : public FinderTest {
 protected:
  MountedPlacesTest() {
    mountPoint = c_;
    g_vfs_register_uri_scheme(g_vfs_get_default(), "place", fileOf, nullptr, nullptr, fileOf, nullptr, nullptr);
    fileManager_.has("{'OpenLocations': <['place:///mounted', 'place:///other', 'place:///mounted']>}");
  }
  ~MountedPlacesTest() override { g_vfs_unregister_uri_scheme(g_vfs_get_default(), "place"); }

  static GFile* fileOf(GVfs* /*vfs*/, const char* uri, gpointer /*data*/) {
    return std::string_view(uri) == "place:///mounted" ? g_file_new_for_path(mountPoint.c_str()) : nullptr;
  }

  static inline std::string mountPoint;
  FakeFileManager fileManager_;
};

TEST_F(MountedPlacesTest, AppearUnderTheirMountPoints) {
  const FakeService virtualFileSystems("org.gtk.vfs.Daemon", "/org/gtk/vfs/mounttracker",
                                       "<node><interface name='org.gtk.vfs.MountTracker'/></node>");
  EXPECT_THAT(openPaths().value(), ElementsAre(c_ / "", c_ / ""));
}

TEST_F(MountedPlacesTest, AreNoWindowsWithoutTheVirtualFileSystems) {
  EXPECT_THAT(openPaths().value(), IsEmpty());
}

TEST_F(MountedPlacesTest, AreAskedForOnceOfVirtualFileSystemsThatStaySilent) {
  FakeService virtualFileSystems("org.gtk.vfs.Daemon", "/org/gtk/vfs/mounttracker", R"(
      <node><interface name='org.freedesktop.DBus.Peer'><method name='Ping'/></interface></node>)");
  virtualFileSystems.answer("Ping", [](GDBusMethodInvocation* invocation) { g_object_unref(invocation); });
  EXPECT_THAT(openPaths(shortly).value(), IsEmpty());
  EXPECT_EQ(virtualFileSystems.awaitCall("Ping"), "Ping()");
  EXPECT_THAT(virtualFileSystems.calls(), ElementsAre("Ping()"));
}

}  // namespace
