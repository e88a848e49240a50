// The Finder with file managers that report which folders they show.

#include <chrono>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "Tests/ScriptableApps/FinderTest.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestWindow.h"

namespace {

using namespace std::chrono_literals;
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

/// The connection that owns a name on the bus.
std::string ownerOf(const char* name) {
  return DesktopSupport::BusDaemon(*DesktopSupport::SessionBus::connect(), 60s).ownerOf(name).value_or("none");
}

TEST_F(FinderTest, HasAWindowForEachTabOfEachWindowInTheOrderReported) {
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
  other.has("{'OpenWindowsWithLocations': <{'/window/1': ['trash:///', " + uri(c_) + "]}>}");
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow shown(desktop);
  ASSERT_TRUE(shown.setText("_NET_WM_NAME", "b", "UTF8_STRING").show());
  TestSupport::TestWindow topmost(desktop);
  ASSERT_TRUE(topmost.setText("_NET_WM_NAME", "c", "UTF8_STRING").show());
  ASSERT_TRUE(desktop.waitUntil([&] { return desktop.stackedClients().back() == topmost.id(); }));
  EXPECT_THAT(openPaths().value(), ElementsAre(c_ / "", b_ / "", a_ / "")) << "the last one is not on the screen";
}

TEST_F(FinderTest, HasTheOrderOfGTKWindowsThatShowFoldersOfTheSameName) {
  std::vector<std::filesystem::path> folders;
  for (const char* parent : {"1", "2", "3"}) {
    folders.push_back(folder_.path() / parent / "same");
    std::filesystem::create_directories(folders.back());
  }
  FakeFileManager fileManager;
  fileManager.has("{'OpenWindowsWithLocations': <{'/window/1': [" + uri(folders[0]) + "], '/window/2': [" +
                  uri(folders[1]) + "], '/window/3': [" + uri(folders[2]) + "]}>}");
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow lower(desktop);
  TestSupport::TestWindow upper(desktop);
  for (const auto& [window, path] : {std::pair(&lower, "/window/1"), std::pair(&upper, "/window/3")}) {
    window->setText("_NET_WM_NAME", "same", "UTF8_STRING");
    window->setText("_GTK_UNIQUE_BUS_NAME", ownerOf(interfaceOwner)).setText("_GTK_WINDOW_OBJECT_PATH", path);
    ASSERT_TRUE(window->show());
  }
  ASSERT_TRUE(desktop.waitUntil([&] { return desktop.stackedClients().back() == upper.id(); }));
  EXPECT_THAT(openPaths().value(), ElementsAre(folders[2] / "", folders[0] / "", folders[1] / ""));
}

TEST_F(FinderTest, KnowsAWindowByItsTitleBeforeOthersByTheirNames) {
  std::vector<std::filesystem::path> folders;
  for (const char* parent : {"1", "2"}) {
    folders.push_back(folder_.path() / parent / "same");
    std::filesystem::create_directories(folders.back());
  }
  FakeFileManager below;
  FakeFileManager fileManager(otherFileManager);
  below.has("{'OpenWindowsWithLocations': <{'/window/1': [" + uri(c_) + "]}>}");
  fileManager.has("{'OpenWindowsWithLocations': <{'/window/1': [" + uri(a_) + "], '/window/2': [" + uri(folders[0]) +
                  "], '/window/3': [" + uri(folders[1]) + "]}>}");
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow lowest(desktop);
  TestSupport::TestWindow lower(desktop);
  TestSupport::TestWindow middle(desktop);
  TestSupport::TestWindow topmost(desktop);
  const auto show = [&](TestSupport::TestWindow& window, const char* title, const char* path) {
    window.setText("_NET_WM_NAME", title, "UTF8_STRING");
    window.setText("_GTK_UNIQUE_BUS_NAME", ownerOf(otherFileManager)).setText("_GTK_WINDOW_OBJECT_PATH", path);
    ASSERT_TRUE(window.show());
    ASSERT_TRUE(desktop.waitUntil([&] { return desktop.stackedClients().back() == window.id(); }));
  };
  show(lowest, "c", "/window/none");
  show(lower, "same", "/window/2");
  show(middle, "a", "/window/1");
  show(topmost, "same", "/window/3");
  EXPECT_THAT(openPaths().value(), ElementsAre(folders[1] / "", a_ / "", folders[0] / "", c_ / ""));
}

TEST_F(FinderTest, HasLocationsWithoutWindowsAtThePlaceOfTheTopmostWindow) {
  FakeFileManager fileManager;
  FakeFileManager other(otherFileManager);
  fileManager.has("{'OpenWindowsWithLocations': <{'/window/1': [" + uri(c_) + "]}>}");
  other.has("{'OpenLocations': <[" + uri(a_) + ", " + uri(b_) + "]>}");
  const TestSupport::TestDesktop desktop;
  TestSupport::TestWindow lower(desktop);
  ASSERT_TRUE(lower.setText("_NET_WM_NAME", "c", "UTF8_STRING").show());
  TestSupport::TestWindow upper(desktop);
  ASSERT_TRUE(upper.setText("_NET_WM_NAME", "another", "UTF8_STRING").show());
  ASSERT_TRUE(desktop.waitUntil([&] { return desktop.stackedClients().back() == upper.id(); }));
  EXPECT_THAT(openPaths().value(), ElementsAre(a_ / "", b_ / "", c_ / ""));
}

TEST_F(FinderTest, HasTheLocationsIfTheFileManagerDoesNotReportWindows) {
  FakeFileManager fileManager;
  const std::string locations = "'OpenLocations': <[" + uri(b_) + ", " + uri(a_) + "]>";
  for (const char* windows : {"", "'OpenWindowsWithLocations': <'none'>, ", "'OpenWindowsWithLocations': <7>, "}) {
    fileManager.has(std::string("{") + windows + locations + '}');
    EXPECT_THAT(openPaths().value(), ElementsAre(b_ / "", a_ / "")) << windows;
  }
}

TEST_F(FinderTest, HasNoWindowsIfTheFileManagerHasNone) {
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

TEST_F(FinderTest, LeavesOutAFolderWhosePathIsNotOneLineAndLogsIt) {
  const auto folder = folder_.path() / "two\nlines";
  std::filesystem::create_directory(folder);
  FakeFileManager fileManager;
  fileManager.has("{'OpenLocations': <['file://" + folder_.path().string() + "/two%0Alines', " + uri(a_) +
                  ", 'trash:///']>}");
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), ElementsAre(a_ / ""));
  EXPECT_EQ(log, "The folder " + folder_.path().string() +
                     "/two lines is left out: its path contains characters that cannot be shown.\n");
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

TEST_F(FinderTest, CopesWithManyLocations) {
  FakeFileManager fileManager;
  std::string locations = "''";
  for (int count = 0; count < 10000; ++count)
    locations += ", " + uri(a_);
  fileManager.has("{'OpenLocations': <[" + locations + "]>}");
  EXPECT_EQ(openPaths().value().size(), 10000U);
}

/// Places of a made-up kind, of which one is mounted.
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
