#include <algorithm>

#include <gtest/gtest.h>
#include <unistd.h>

#include "ScriptableApps/SystemEvents/SystemEvents.h"
#include "Tests/ScriptableApps/OpenProcesses.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestWindow.h"
#include "Tests/Support/TestXServer.h"

namespace {

using AppleScript::ErrorNumber;
using ScriptableApps::RunningApplication;
using ScriptableApps::SystemEvents;
using TestSupport::ChildProcess;
using TestSupport::EnvironmentVariable;
using TestSupport::TestDesktop;
using TestSupport::TestWindow;

// Shows a window with the class in its first argument until the X server closes the connection.
constexpr std::string_view pythonProgram = R"(
import ctypes, os, sys

class Roots(ctypes.Structure):
    _fields_ = [("data", ctypes.POINTER(ctypes.c_uint32)), ("rest", ctypes.c_int), ("index", ctypes.c_int)]

xcb = ctypes.CDLL("libxcb.so.1")
xcb.xcb_connect.restype = xcb.xcb_get_setup.restype = xcb.xcb_wait_for_event.restype = ctypes.c_void_p
xcb.xcb_setup_roots_iterator.restype = Roots
xcb.xcb_setup_roots_iterator.argtypes = [ctypes.c_void_p]
connection = ctypes.c_void_p(xcb.xcb_connect(None, None))
root = xcb.xcb_setup_roots_iterator(xcb.xcb_get_setup(connection)).data[0]
window = xcb.xcb_generate_id(connection)
xcb.xcb_create_window(connection, 0, window, root, 0, 0, 10, 10, 0, 1, 0, 0, None)
text = ("instance\0" + sys.argv[1] + "\0").encode()
xcb.xcb_change_property(connection, 0, window, 67, 31, 8, len(text), text)
xcb.xcb_map_window(connection, window)
xcb.xcb_flush(connection)
if sys.argv[2:] == ["--leave-to-child"] and os.fork():
    os._exit(0)
while xcb.xcb_wait_for_event(connection):
    pass
)";

/// The desktop that script/desktop brings up, with the test's own desktop entries.
class SystemEventsTest : public testing::Test {
 protected:
  ~SystemEventsTest() override { EXPECT_TRUE(desktop_.waitForNoWindows()); }

  void addEntry(const std::string& id, const std::string& name, std::string_view more = "") {
    folder_.write("applications/" + id + ".desktop",
                  "[Desktop Entry]\nType=Application\nName=" + name + '\n' + std::string(more) + '\n');
  }

  static std::vector<std::string> names() { return namesOfOpenProcesses(); }

  // Waits until the window manager lists this number of windows.
  void awaitWindows(std::size_t count) {
    EXPECT_TRUE(desktop_.waitUntil([&] { return desktop_.clients().size() == count; }));
  }

  // The name under which a window with this class is listed.
  std::string nameOf(std::string_view windowClass) {
    TestWindow window(desktop_);
    window.setClass("instance", windowClass);
    EXPECT_TRUE(window.show());
    const auto all = names();
    EXPECT_EQ(all.size(), 1U);
    return all.empty() ? "none" : all[0];
  }

  using Names = std::vector<std::string>;
  TestSupport::TemporaryFolder folder_;
  EnvironmentVariable dataHome_{"XDG_DATA_HOME", folder_.path()};
  EnvironmentVariable language_{"LANGUAGE", "C"};
  TestDesktop desktop_;
  std::string ownName_ = std::filesystem::read_symlink("/proc/self/exe").filename();
};

TEST_F(SystemEventsTest, ListsNothingOnAnEmptyDesktop) {
  EXPECT_TRUE(openProcesses().empty());
}

TEST_F(SystemEventsTest, ListsRealPrograms) {
  const ChildProcess xterm({"xterm"});
  ASSERT_TRUE(desktop_.waitForClass("XTerm"));
  const ChildProcess mousepad({"mousepad", "--disable-server"});
  ASSERT_TRUE(desktop_.waitForClass("Mousepad"));
  const ChildProcess calculator({"gnome-calculator"});
  ASSERT_TRUE(desktop_.waitForClass("gnome-calculator"));
  const ChildProcess xclock({"xclock"});
  ASSERT_TRUE(desktop_.waitForClass("XClock"));
  const auto processes = openProcesses();
  ASSERT_EQ(processes.size(), 4U);
  EXPECT_EQ(names(), (Names{"XTerm", "Mousepad", "Calculator", "xclock"}));
  EXPECT_EQ(processes[0].file, "/usr/share/applications/debian-xterm.desktop");
  EXPECT_EQ(processes[1].entryID, "org.xfce.mousepad");
  EXPECT_EQ(processes[2].entryID, "org.gnome.Calculator");
  EXPECT_EQ(processes[3].file, "/usr/bin/xclock");
  EXPECT_EQ(processes[3].pid, xclock.pid());
}

TEST_F(SystemEventsTest, NamesProgramsInTheUsersLanguage) {
  const ChildProcess calculator({"gnome-calculator"});
  ASSERT_TRUE(desktop_.waitForClass("gnome-calculator"));
  const EnvironmentVariable german("LANGUAGE", "de");
  EXPECT_EQ(names(), Names{"Taschenrechner"});
}

TEST_F(SystemEventsTest, ListsAProgramOnceHoweverOftenItRuns) {
  const ChildProcess first({"xclock"});
  ASSERT_TRUE(desktop_.waitForClass("XClock"));
  const ChildProcess second({"xclock"});
  ASSERT_TRUE(desktop_.waitUntil([&] { return desktop_.clients().size() == 2; }));
  const auto processes = openProcesses();
  ASSERT_EQ(processes.size(), 1U);
  EXPECT_EQ(processes[0].pid, first.pid());
}

TEST_F(SystemEventsTest, ListsTheScriptsOfAnInterpreterEachByItself) {
  const std::string viewer = folder_.write("viewer.py", pythonProgram);
  const std::string editor = folder_.write("editor.py", pythonProgram);
  const std::string folder = folder_.path();
  const ChildProcess first({"/usr/bin/python3", viewer, "Tk"});
  awaitWindows(1);
  const ChildProcess second({"env", "--chdir", folder, "/usr/bin/python3", "-W", "ignore", "editor.py", "Tk"});
  awaitWindows(2);
  const ChildProcess third({"env", "--chdir", folder, "/usr/bin/python3", "-m", "viewer", "Module"});
  awaitWindows(3);
  const ChildProcess fourth({"/usr/bin/python3", "-c", std::string(pythonProgram), "Code"});
  awaitWindows(4);
  const ChildProcess fifth({"/usr/bin/python3", viewer, "Tk"});
  awaitWindows(5);
  const std::string python = std::filesystem::canonical("/usr/bin/python3");
  const auto processes = openProcesses();
  ASSERT_EQ(processes.size(), 4U);
  EXPECT_EQ(names(), (Names{"viewer.py", "editor.py", "Module", "Code"}));
  EXPECT_EQ(processes[0].file, viewer);
  EXPECT_EQ(processes[1].file, editor);
  EXPECT_EQ(processes[2].file, python);
  EXPECT_EQ(processes[3].file, python);
}

TEST_F(SystemEventsTest, LeavesOutAWindowThatNoProcessOfThisMachineShows) {
  const ChildProcess xclock({"xclock"});
  ASSERT_TRUE(desktop_.waitForClass("XClock"));
  ChildProcess remote({"/usr/bin/python3", "-c", std::string(pythonProgram), "../../etc/shadow", "--leave-to-child"});
  ASSERT_TRUE(desktop_.waitForClass("../../etc/shadow"));
  EXPECT_EQ(remote.wait(), 0) << "the process that the X server knows is gone";
  testing::internal::CaptureStderr();
  EXPECT_EQ(names(), Names{"xclock"});
  EXPECT_EQ(
      testing::internal::GetCapturedStderr(),
      "An application with the window class \"../../etc/shadow\" is left out: no desktop entry matches it, and its "
      "program on this computer is unknown.\n");
  xcb_kill_client(desktop_.connection(), desktop_.clients().back());
  desktop_.synchronize();
  awaitWindows(1);
}

TEST_F(SystemEventsTest, LeavesPartsOfTheDesktopOut) {
  const ChildProcess xclock({"xclock"});
  ASSERT_TRUE(desktop_.waitForClass("XClock"));
  for (const char* type : {"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP", "_NET_WM_WINDOW_TYPE_SPLASH"}) {
    TestWindow window(desktop_);
    window.setAtom("_NET_WM_WINDOW_TYPE", type);
    ASSERT_TRUE(window.show());
    EXPECT_EQ(names(), Names{"xclock"}) << type;
  }
  TestWindow window(desktop_);
  window.setAtom("_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR");
  ASSERT_TRUE(window.show());
  EXPECT_EQ(names(), Names{"xclock"});
}

TEST_F(SystemEventsTest, CountsADialogForItsWindow) {
  addEntry("editor", "Editor", "StartupWMClass=Editor");
  addEntry("chooser", "Chooser", "StartupWMClass=Chooser");
  TestWindow window(desktop_);
  window.setClass("editor", "Editor");
  TestWindow dialog(desktop_);
  dialog.setClass("chooser", "Chooser").setNumber("WM_TRANSIENT_FOR", window.id(), "WINDOW");
  ASSERT_TRUE(window.show());
  ASSERT_TRUE(dialog.show());
  EXPECT_EQ(names(), Names{"Editor"});
}

TEST_F(SystemEventsTest, ListsAWindowWithoutAnEntryByItsProgram) {
  TestWindow window(desktop_);
  ASSERT_TRUE(window.show());
  const auto processes = openProcesses();
  ASSERT_EQ(processes.size(), 1U);
  EXPECT_EQ(processes[0].name, ownName_);
  EXPECT_EQ(processes[0].file, std::filesystem::read_symlink("/proc/self/exe"));
  EXPECT_EQ(processes[0].pid, getpid());
}

TEST_F(SystemEventsTest, KnowsApplicationsByTheirIds) {
  addEntry("org.example.Tool", "By its id");
  addEntry("tool", "By its class", "StartupWMClass=Tool");
  TestWindow window(desktop_);
  window.setClass("tool", "Tool").setText("_GTK_APPLICATION_ID", "org.example.Tool", "UTF8_STRING");
  ASSERT_TRUE(window.show());
  EXPECT_EQ(names(), Names{"By its id"});
}

TEST_F(SystemEventsTest, KnowsApplicationsByTheirClasses) {
  EXPECT_EQ(nameOf("My Tool"), ownName_);
  addEntry("my-tool", "Called like the class");
  EXPECT_EQ(nameOf("My Tool"), "Called like the class");
  addEntry("a", "Names the class in another case", "StartupWMClass=my tool");
  EXPECT_EQ(nameOf("My Tool"), "Names the class in another case");
  addEntry("b", "Names the class", "StartupWMClass=My Tool");
  EXPECT_EQ(nameOf("My Tool"), "Names the class");
  addEntry("c", "Names the instance", "StartupWMClass=instance");
  EXPECT_EQ(nameOf("My Tool"), "Names the instance");
}

TEST_F(SystemEventsTest, KnowsEntriesInSubFolders) {
  addEntry("vendor/tool", "In a sub-folder");
  EXPECT_EQ(nameOf("vendor-tool"), "In a sub-folder");
}

TEST_F(SystemEventsTest, PassesOverBrokenAndHiddenEntries) {
  folder_.write("applications/broken.desktop",
                "\x7f"
                "ELF rubbish");
  folder_.write("applications/nameless.desktop", "[Desktop Entry]\nType=Application\n");
  addEntry("hidden", "Hidden", "Hidden=true");
  std::filesystem::create_directory_symlink(".", folder_.path() / "applications/loop");
  for (const char* windowClass : {"broken", "nameless", "hidden", "loop"})
    EXPECT_EQ(nameOf(windowClass), ownName_) << windowClass;
}

TEST_F(SystemEventsTest, CopesWithWhateverAClassIs) {
  for (const std::string& windowClass : {std::string(64 * 1024, 'n'), std::string("a\nb\r\x01"),
                                         std::string("\xff\xfe"), std::string("../../etc/passwd"), std::string()})
    EXPECT_EQ(nameOf(windowClass), ownName_);
}

TEST_F(SystemEventsTest, TellsWhetherProcessesAreVisible) {
  TestWindow window(desktop_);
  ASSERT_TRUE(window.show());
  EXPECT_TRUE(openProcesses().at(0).isVisible);
  ASSERT_TRUE(window.minimize());
  EXPECT_FALSE(openProcesses().at(0).isVisible);
}

void expectNotRunning() {
  SystemEvents systemEvents;
  const auto root = systemEvents.open();
  ASSERT_FALSE(root);
  EXPECT_EQ(root.error().number, ErrorNumber::notRunning);
  EXPECT_EQ(root.error().applicationName, "System Events");
  EXPECT_TRUE(root.error().message.starts_with("System Events got an error: Application isn’t running."));
}

TEST(SystemEventsWithoutADesktop, IsNotRunning) {
  for (const auto& display : {std::optional<std::string>(), std::optional<std::string>(":987")}) {
    const EnvironmentVariable variable("DISPLAY", display);
    expectNotRunning();
  }
}

TEST(SystemEventsWithoutADesktop, IsNotRunningWithoutAWindowManager) {
  const TestSupport::TestXServer server;
  expectNotRunning();
}

}  // namespace
