// The Finder with a file manager that may show a place on the network.

#include "DesktopSupport/System/UserFolders.h"
#include "Tests/ScriptableApps/FileManagersTest.h"
#include "Tests/Support/GIOHandles.h"

namespace {

using TestSupport::FileManagersTest;
using TestSupport::openPaths;

TEST_F(FileManagersTest, AreNotKnownByAFolderThatMayBeWatchedWithoutBeingShownIfThereArePlacesOnTheNetwork) {
  TestSupport::FakeService virtualFileSystems("org.gtk.vfs.Daemon", "/org/gtk/vfs/mounttracker", R"(
      <node><interface name='org.gtk.vfs.MountTracker'>
        <method name='ListMounts'><arg type='a(sossssssbay(aya{sv})ay)' direction='out'/></method>
      </interface></node>)");
  const std::string home = DesktopSupport::homeFolder();
  const TestSupport::ChildProcess pcmanfm({"pcmanfm", home});
  ASSERT_TRUE(desktop_.waitForTitle(std::filesystem::path(home).filename().string()));
  awaitWatch(pcmanfm, home);
  const auto answer = [](const std::string& type) {
    return "([(':1.2', objectpath '/mount/1', '', '', '', '', '', '', false, b'', (b'/', {'type': <b'" + type +
           "'>}), b'')],)";
  };
  virtualFileSystems.answer("ListMounts", answer("trash"));
  EXPECT_THAT(openPaths().value(), shows({home}));
  virtualFileSystems.answer("ListMounts", answer("sftp"));
  EXPECT_FALSE(openPaths());
  virtualFileSystems.answer("ListMounts", [](GDBusMethodInvocation* invocation) { g_object_unref(invocation); });
  EXPECT_FALSE(openPaths(TestSupport::shortly));
}

}  // namespace
