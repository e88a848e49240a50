// The configure action on a real desktop: the About window, and how the process ends.

#include <fstream>
#include <iterator>
#include <string>

#include <gmock/gmock.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/ScreenReader.h"
#include "Tests/Support/TestInput.h"
#include "Tests/Support/TestWindow.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using TestSupport::ChildProcess;
using TestSupport::HostProcess;
using TestSupport::ScreenReader;
using TestSupport::TestWindow;

namespace {

constexpr const char* pluginName = "com.quillary.Gleanery";
constexpr const char* configure = "deskloomplugin://configure";

class AboutWindowTest : public testing::Test {
 protected:
  /// Windows of the next test may get the same ids.
  void TearDown() override {
    EXPECT_TRUE(desktop.waitUntil([this] { return desktop.clients().empty(); }));
  }

  static ChildProcess launch(const std::vector<std::string>& arguments = {configure}) {
    std::vector<std::string> command = {GLEANERY_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return ChildProcess(command, {.environment = {ScreenReader::accessibility}});
  }

  /// Waits until the window is on screen, above the others, and has the keyboard focus.
  xcb_window_t awaitAboutWindow() {
    const auto window = desktop.waitForTitle("About Gleanery");
    if (!window) {
      ADD_FAILURE() << "there is no About window";
      return XCB_WINDOW_NONE;
    }
    desktop.watch(*window);
    EXPECT_TRUE(desktop.waitUntil([&] { return desktop.isReady(*window) && isKeptAbove(*window); }));
    return *window;
  }

  bool isKeptAbove(xcb_window_t window) {
    return testing::Value(desktop.numbers(window, "_NET_WM_STATE"), Contains(desktop.atom("_NET_WM_STATE_ABOVE")));
  }

  bool awaitOnTop(xcb_window_t window) {
    return desktop.waitUntil([&] {
      const auto windows = desktop.stackedClients();
      return !windows.empty() && windows.back() == window;
    });
  }

  TestSupport::TestDesktop desktop;
  TestSupport::TestInput input{desktop};
};

TEST_F(AboutWindowTest, TellsWhatTheApplicationIs) {
  const ScreenReader reader;
  ChildProcess plugin = launch();
  awaitAboutWindow();
  const auto window = reader.awaitWindow(plugin.pid());
  ASSERT_TRUE(window);
  std::string texts;
  for (const auto& item : window->items())
    texts += item.name + item.text + "\n";
  EXPECT_THAT(texts, HasSubstr("Gleanery\n"));
  EXPECT_THAT(texts, testing::ContainsRegex("Version [0-9]+\\.[0-9]+\\.[0-9]+\n"));
  EXPECT_THAT(texts, HasSubstr("License: MIT\n"));
  EXPECT_THAT(texts, HasSubstr("Website\n"));
  EXPECT_THAT(texts, Not(HasSubstr("Share")));
  EXPECT_THAT(texts, Not(HasSubstr("More apps")));
  input.press(XKB_KEY_Escape);
  EXPECT_EQ(plugin.wait(), 0);
}

TEST_F(AboutWindowTest, BelongsToTheDesktopEntry) {
  ChildProcess plugin = launch();
  const auto about = awaitAboutWindow();
  EXPECT_THAT(desktop.text(about, "WM_CLASS"), HasSubstr(pluginName));
  input.press(XKB_KEY_Escape);
  EXPECT_EQ(plugin.wait(), 0);
}

TEST_F(AboutWindowTest, IsAboveOrdinaryAndFloatingWindowsAndStaysThere) {
  TestWindow floating(desktop);
  floating.setAtom("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_UTILITY")
      .setAtom("_NET_WM_STATE", "_NET_WM_STATE_ABOVE");
  ASSERT_TRUE(floating.show());
  ChildProcess plugin = launch();
  const auto about = awaitAboutWindow();
  EXPECT_TRUE(awaitOnTop(about));
  {
    TestWindow ordinary(desktop);
    ASSERT_TRUE(ordinary.show());
    ASSERT_TRUE(desktop.waitUntil([&] { return desktop.stackedClients().size() == 3; }));
    EXPECT_EQ(desktop.stackedClients().back(), about);
  }
  EXPECT_TRUE(desktop.waitUntil([&] { return desktop.isReady(about); }));
  input.press(XKB_KEY_Escape);
  EXPECT_EQ(plugin.wait(), 0);
}

TEST_F(AboutWindowTest, ItsCloseButtonEndsTheProcess) {
  ChildProcess plugin = launch();
  const auto about = awaitAboutWindow();
  const auto place = desktop.geometry(about).value();
  const auto frame = desktop.numbers(about, "_NET_FRAME_EXTENTS");  // left, right, top, bottom
  ASSERT_THAT(frame, SizeIs(4));
  constexpr int fromCornerToButton = 10;
  input.click(place.x + place.width - fromCornerToButton, place.y - static_cast<int>(frame[2]) / 2);
  EXPECT_EQ(plugin.wait(), 0);
}

TEST_F(AboutWindowTest, TheSameWindowComesToTheFrontWhenItIsAskedForAgain) {
  ChildProcess plugin = launch();
  const auto about = awaitAboutWindow();
  {
    TestWindow other(desktop);
    other.setAtom("_NET_WM_STATE", "_NET_WM_STATE_ABOVE");
    ASSERT_TRUE(other.show());
    ASSERT_TRUE(awaitOnTop(other.id()));
    EXPECT_TRUE(TestSupport::openURL(pluginName, configure));
    EXPECT_TRUE(awaitOnTop(about));
    EXPECT_TRUE(desktop.waitUntil([&] { return desktop.isReady(about); }));
    EXPECT_THAT(desktop.clients(), SizeIs(2));
  }
  input.press(XKB_KEY_Escape);
  EXPECT_EQ(plugin.wait(), 0);
}

TEST_F(AboutWindowTest, AskedForByASecondProcessItIsTheFirstOnes) {
  ChildProcess plugin = launch();
  const auto about = awaitAboutWindow();
  EXPECT_EQ(launch().wait(), 0);
  EXPECT_THAT(desktop.clients(), ElementsAre(about));
  input.press(XKB_KEY_Escape);
  EXPECT_EQ(plugin.wait(), 0);
}

TEST_F(AboutWindowTest, ARunCommandMeanwhileArrivesAndEndsTheProcess) {
  HostProcess host(DESKLOOM_HOST_PROGRAM);
  ChildProcess plugin = launch();
  awaitAboutWindow();
  EXPECT_TRUE(TestSupport::openURL(pluginName, "deskloomplugin://runCommand/apps"));
  EXPECT_THAT(host.nextLine(), HasSubstr("deskloom://gleanery/"));
  EXPECT_EQ(plugin.wait(), 0);
}

TEST_F(AboutWindowTest, CannotBeMadeWithoutADisplayWhichStopsTheProcess) {
  ChildProcess plugin({GLEANERY_PROGRAM, configure}, {.environment = {{"DISPLAY", ""}}, .captureErrors = true});
  const std::string errors = plugin.readAll();
  EXPECT_THAT(errors, HasSubstr("could not be shown: no display can be opened"));
  EXPECT_THAT(errors, HasSubstr("Fatal error: The About window could not be made."));
  EXPECT_EQ(plugin.wait(), 128 + SIGABRT);
}

std::string mapsOf(pid_t process) {
  std::ifstream maps("/proc/" + std::to_string(process) + "/maps");
  return {std::istreambuf_iterator<char>(maps), {}};
}

TEST_F(AboutWindowTest, IsAllThatTheUserInterfaceIsLoadedFor) {
  const HostProcess host(DESKLOOM_HOST_PROGRAM);
  host.hang();
  ChildProcess run = launch({"--dbus-activated"});
  TestSupport::awaitOwner(pluginName);
  for (const auto* library : {"libxcb", "libwayland"})
    EXPECT_THAT(mapsOf(run.pid()), Not(HasSubstr(library))) << "before anybody asked for windows";
  EXPECT_TRUE(TestSupport::openURL(pluginName, "deskloomplugin://runCommand/apps"));
  TestSupport::awaitNoOwner(pluginName);  // all is done then but the hand-over to the host, which hangs
  const std::string maps = mapsOf(run.pid());
  EXPECT_THAT(maps, HasSubstr("libglib-2.0"));
  EXPECT_THAT(maps, HasSubstr("libxcb"));
  for (const auto* library :
       {"deskloom-windows.so", "libgio", "libgobject", "libgtk", "libgdk", "libpango", "libcairo"})
    EXPECT_THAT(maps, Not(HasSubstr(library)));
  host.crash();
  EXPECT_EQ(run.wait(), 0);

  ChildProcess plugin = launch();
  awaitAboutWindow();
  EXPECT_THAT(mapsOf(plugin.pid()), HasSubstr("deskloom-windows.so"));
  input.press(XKB_KEY_Escape);
  EXPECT_EQ(plugin.wait(), 0);
}

}  // namespace
