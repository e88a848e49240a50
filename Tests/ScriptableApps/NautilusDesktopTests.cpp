// The Finder with a real file manager that reports which folders it shows.

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "Tests/ScriptableApps/FinderTest.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestDesktop.h"

namespace {

using namespace std::chrono_literals;
using DesktopSupport::SessionBus;
using TestSupport::ChildProcess;

constexpr const char* fileManagerName = "org.freedesktop.FileManager1";

/// Waits until a condition holds, which is checked again whenever the file manager signals that its locations have
/// changed.
class LocationChanges {
 public:
  static void awaitUntil(const std::function<bool()>& condition) {
    while (!condition())
      g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  }

 private:
  std::unique_ptr<DesktopSupport::SignalSubscription> subscription_ = SessionBus::connect().value().subscribe(
      fileManagerName, "/org/freedesktop/FileManager1", "org.freedesktop.DBus.Properties", fileManagerName,
      [](const auto&...) {});
};

class NautilusTest : public testing::Test {
 protected:
  NautilusTest() {
    for (const char* name : {"first", "second", "third"})
      std::filesystem::create_directory(folder_.path() / name);
  }
  ~NautilusTest() override {
    TestSupport::awaitNoOwner(fileManagerName);
    EXPECT_TRUE(desktop_.waitForNoWindows());
  }

  [[nodiscard]] std::string path(const std::string& name) const { return folder_.path() / name; }
  /// The lines that `listed` yields for a folder.
  [[nodiscard]] std::string lines(const std::string& name) const { return name + '\n' + path(name) + "/\n"; }

  /// The name and the path of each folder that is listed, each on a line; nothing while the Finder fails.
  static std::string listed() {
    std::string folders;
    for (const auto& folder : TestSupport::openFolders().value_or(std::vector<ScriptableApps::OpenFolder>()))
      folders += folder.name + '\n' + folder.path + '\n';
    return folders;
  }

  /// Waits until this number of folders is listed. Yields them.
  static std::string foldersOnceThereAre(std::ptrdiff_t count) {
    std::string folders;
    LocationChanges::awaitUntil([&] {
      folders = listed();
      return std::ranges::count(folders, '\n') == 2 * count;
    });
    return folders;
  }

  /// Brings a window to the front.
  void raise(xcb_window_t window) const {
    desktop_.askWindowManager(window, "_NET_ACTIVE_WINDOW");
    ASSERT_TRUE(desktop_.waitUntil([&] { return desktop_.stackedClients().back() == window; }));
  }

  /// Opens another tab for the folder that a window shows.
  static void openTab(const std::string& window) {
    const auto reply = SessionBus::connect()->call(
        {.destination = fileManagerName, .path = window, .interface = "org.gtk.Actions", .name = "Activate"},
        g_variant_new_parsed("('new-tab', @av [], @a{sv} {})"), G_VARIANT_TYPE("()"), 60s);
    EXPECT_TRUE(reply);
  }

  /// Opens another window.
  static void openWindow(const std::string& folder) {
    const auto reply = SessionBus::connect()->call({.destination = fileManagerName,
                                                    .path = "/org/freedesktop/FileManager1",
                                                    .interface = fileManagerName,
                                                    .name = "ShowFolders"},
                                                   g_variant_new_parsed("([%s], '')", ("file://" + folder).c_str()),
                                                   G_VARIANT_TYPE("()"), 60s);
    EXPECT_TRUE(reply);
  }

  TestSupport::TemporaryFolder folder_;
  TestSupport::TestDesktop desktop_;
  LocationChanges changes_;
};

TEST_F(NautilusTest, ShowsItsWindowsTheTopmostFirst) {
  const ChildProcess nautilus({"nautilus", "--new-window", path("first"), path("second"), path("third")});
  const auto first = desktop_.waitForTitle("first");
  const auto third = desktop_.waitForTitle("third");
  const auto second = desktop_.waitForTitle("second");
  ASSERT_TRUE(first && second && third);
  foldersOnceThereAre(3);
  raise(*first);
  raise(*second);
  raise(*third);
  EXPECT_EQ(listed(), lines("third") + lines("second") + lines("first"));
  raise(*first);
  EXPECT_EQ(listed(), lines("first") + lines("third") + lines("second"));
}

TEST_F(NautilusTest, ShowsEachTabAsAWindow) {
  const ChildProcess nautilus({"nautilus", "--new-window", path("first")});
  EXPECT_EQ(foldersOnceThereAre(1), lines("first"));
  openTab("/org/gnome/Nautilus/window/1");
  EXPECT_EQ(foldersOnceThereAre(2), lines("first") + lines("first"));
}

TEST_F(NautilusTest, CallsTheHomeFolderAsItDoes) {
  const std::string home = std::getenv("HOME");
  const ChildProcess nautilus({"nautilus", "--new-window", home});
  const std::string folders = foldersOnceThereAre(1);
  EXPECT_EQ(folders, "Home\n" + home + "/\n");
  EXPECT_TRUE(desktop_.waitForTitle("Home"));
}

TEST_F(NautilusTest, ShowsNoPlacesThatAreNoFolders) {
  const ChildProcess nautilus({"nautilus", "--new-window", "other-locations:///", path("first")});
  ASSERT_TRUE(desktop_.waitForTitle("Other Locations"));
  EXPECT_EQ(foldersOnceThereAre(1), lines("first"));
}

TEST_F(NautilusTest, ShowsWindowsWithTheSameNameTheTopmostFirst) {
  for (const char* parent : {"first", "second"})
    std::filesystem::create_directory(folder_.path() / parent / "same");
  const ChildProcess nautilus({"nautilus", "--new-window", path("first/same")});
  const auto first = desktop_.waitForTitle("same");
  ASSERT_TRUE(first);
  foldersOnceThereAre(1);
  openWindow(path("second/same"));
  const std::string inFirst = "same\n" + path("first/same") + "/\n";
  const std::string inSecond = "same\n" + path("second/same") + "/\n";
  foldersOnceThereAre(2);
  ASSERT_TRUE(desktop_.waitUntil([&] { return desktop_.stackedClients().size() == 2; }));
  raise(*first);
  EXPECT_EQ(listed(), inFirst + inSecond);
  raise(desktop_.stackedClients().front());
  EXPECT_EQ(listed(), inSecond + inFirst);
}

TEST_F(NautilusTest, IsNotStarted) {
  const auto folders = TestSupport::openFolders();
  ASSERT_FALSE(folders);
  EXPECT_EQ(folders.error().number, AppleScript::ErrorNumber::notRunning);
  TestSupport::awaitNoOwner(fileManagerName);
}

}  // namespace
