#include <algorithm>

#include <gtest/gtest.h>
#include <unistd.h>

#include "DesktopSupport/Windows/X11/X11Windows.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TestWindow.h"

namespace {

using namespace std::string_literals;
using DesktopSupport::readX11Windows;
using DesktopSupport::Window;
using DesktopSupport::WindowID;
using TestSupport::TestDesktop;
using TestSupport::TestWindow;

// The desktop that script/desktop brings up, with its window manager.
class X11WindowsDesktopTest : public testing::Test {
 protected:
  static std::optional<Window> read(xcb_window_t id) {
    const auto list = readX11Windows();
    if (!list) {
      ADD_FAILURE() << list.error().message;
      return std::nullopt;
    }
    const auto found = std::ranges::find(list->windows, id, &Window::id);
    return found == list->windows.end() ? std::nullopt : std::optional(*found);
  }

  std::optional<Window> showAndRead() {
    EXPECT_TRUE(window_.show());
    return read(window_.id());
  }

  TestDesktop desktop_;
  TestWindow window_{desktop_};
};

TEST_F(X11WindowsDesktopTest, ReadsAnEmptyDesktop) {
  const auto list = readX11Windows();
  ASSERT_TRUE(list) << list.error().message;
  EXPECT_TRUE(list->windows.empty());
}

TEST_F(X11WindowsDesktopTest, ReadsWhatAWindowSays) {
  window_.setClass("tool", "Tool")
      .setText("_GTK_APPLICATION_ID", "org.example.Tool", "UTF8_STRING")
      .setText("_NET_WM_NAME", "Werkzeug für alles", "UTF8_STRING");
  const auto window = showAndRead();
  ASSERT_TRUE(window);
  EXPECT_EQ(window->title, "Werkzeug für alles");
  EXPECT_EQ(window->instance, "tool");
  EXPECT_EQ(window->windowClass, "Tool");
  EXPECT_EQ(window->applicationID, "org.example.Tool");
  EXPECT_EQ(window->transientFor, std::nullopt);
  EXPECT_TRUE(window->isOrdinary);
  EXPECT_FALSE(window->isHidden);
}

TEST_F(X11WindowsDesktopTest, KnowsTheProcessOfAWindowThatTellsNone) {
  EXPECT_EQ(showAndRead()->pid, getpid());
}

TEST_F(X11WindowsDesktopTest, DoesNotBelieveAWindowThatTellsAnotherProcess) {
  window_.setNumber("_NET_WM_PID", 1).setText("WM_CLIENT_MACHINE", "elsewhere");
  EXPECT_EQ(showAndRead()->pid, getpid());
}

TEST_F(X11WindowsDesktopTest, CopesWithAWindowThatSaysNothing) {
  const auto window = showAndRead();
  ASSERT_TRUE(window);
  EXPECT_EQ(window->instance, "");
  EXPECT_EQ(window->windowClass, "");
  EXPECT_EQ(window->applicationID, "");
}

TEST_F(X11WindowsDesktopTest, ReadsAClassOfOnePartOnly) {
  window_.setText("WM_CLASS", "tool");
  const auto window = showAndRead();
  EXPECT_EQ(window->instance, "tool");
  EXPECT_EQ(window->windowClass, "");
}

TEST_F(X11WindowsDesktopTest, ReadsAClassWithoutAnInstance) {
  window_.setClass("", "Tool");
  const auto window = showAndRead();
  EXPECT_EQ(window->instance, "");
  EXPECT_EQ(window->windowClass, "Tool");
}

TEST_F(X11WindowsDesktopTest, ReadsTextByItsType) {
  window_.setText("WM_CLASS", "Caf\xe9\0B\xc3\xa4r\0"s, "STRING");
  EXPECT_EQ(showAndRead()->instance, "Café");
  EXPECT_EQ(read(window_.id())->windowClass, "B\u00c3\u00a4r") << "ISO 8859-1";
  window_.setText("WM_CLASS", "Caf\xc3\xa9\0Caf\xe9\0"s, "UTF8_STRING");
  desktop_.synchronize();
  EXPECT_EQ(read(window_.id())->instance, "Café");
  EXPECT_EQ(read(window_.id())->windowClass, "Caf\xe9") << "as it is";
}

TEST_F(X11WindowsDesktopTest, ReadsPropertiesOfTheWrongFormAsMissing) {
  window_.setNumber("WM_CLASS", 7).setText("_NET_WM_WINDOW_TYPE", "text").setText("WM_TRANSIENT_FOR", "text");
  const auto window = showAndRead();
  ASSERT_TRUE(window);
  EXPECT_EQ(window->instance, "");
  EXPECT_EQ(window->transientFor, std::nullopt);
  EXPECT_TRUE(window->isOrdinary);
}

TEST_F(X11WindowsDesktopTest, ReadsLongTextsWhole) {
  const std::string name(64 * 1024, 'n');
  window_.setClass(name, "Tool");
  const auto window = showAndRead();
  EXPECT_EQ(window->instance, name);
  EXPECT_EQ(window->windowClass, "Tool");
}

TEST_F(X11WindowsDesktopTest, TellsThePartsOfTheDesktopFromOrdinaryWindows) {
  for (const char* type : {"_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP", "_NET_WM_WINDOW_TYPE_SPLASH"}) {
    TestWindow part(desktop_);
    part.setAtom("_NET_WM_WINDOW_TYPE", type);
    ASSERT_TRUE(part.show());
    EXPECT_FALSE(read(part.id())->isOrdinary) << type;
  }
  window_.setAtom("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_NORMAL");
  EXPECT_TRUE(showAndRead()->isOrdinary);
}

TEST_F(X11WindowsDesktopTest, TellsWindowsThatTaskBarsPassOver) {
  window_.setAtom("_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR");
  EXPECT_FALSE(showAndRead()->isOrdinary);
}

TEST_F(X11WindowsDesktopTest, TellsWhichWindowADialogIsFor) {
  ASSERT_TRUE(window_.show());
  TestWindow dialog(desktop_);
  dialog.setNumber("WM_TRANSIENT_FOR", window_.id(), "WINDOW");
  ASSERT_TRUE(dialog.show());
  EXPECT_EQ(read(dialog.id())->transientFor, window_.id());
}

TEST_F(X11WindowsDesktopTest, TellsMinimisedWindows) {
  ASSERT_TRUE(window_.show());
  ASSERT_TRUE(window_.minimize());
  EXPECT_TRUE(read(window_.id())->isHidden);
}

TEST_F(X11WindowsDesktopTest, ListsWindowsInTheOrderInWhichTheyAppeared) {
  TestWindow first(desktop_);
  TestWindow second(desktop_);
  for (TestWindow* window : {&second, &first, &window_})
    ASSERT_TRUE(window->show());
  const auto list = readX11Windows();
  std::vector<xcb_window_t> ids;
  std::ranges::transform(list->windows, std::back_inserter(ids), &Window::id);
  EXPECT_EQ(ids, (std::vector{second.id(), first.id(), window_.id()}));
}

TEST_F(X11WindowsDesktopTest, TellsHowWindowsLieAboveEachOther) {
  TestWindow second(desktop_);
  ASSERT_TRUE(window_.show());
  ASSERT_TRUE(second.show());
  ASSERT_TRUE(desktop_.waitUntil([&] { return desktop_.stackedClients().back() == second.id(); }));
  EXPECT_EQ(readX11Windows()->stack, (std::vector<WindowID>{window_.id(), second.id()}));
  desktop_.askWindowManager(window_.id(), "_NET_ACTIVE_WINDOW");
  ASSERT_TRUE(desktop_.waitUntil([&] { return desktop_.stackedClients().back() == window_.id(); }));
  EXPECT_EQ(readX11Windows()->stack, (std::vector<WindowID>{second.id(), window_.id()}));
}

TEST_F(X11WindowsDesktopTest, ReadsRealPrograms) {
  const TestSupport::ChildProcess xterm({"xterm"});
  const TestSupport::ChildProcess xclock({"xclock"});
  ASSERT_TRUE(desktop_.waitForClass("XTerm"));
  ASSERT_TRUE(desktop_.waitForClass("XClock"));
  const auto list = readX11Windows();
  ASSERT_TRUE(list);
  const auto byClass = [&](const char* name) { return std::ranges::find(list->windows, name, &Window::windowClass); };
  ASSERT_NE(byClass("XTerm"), list->windows.end());
  ASSERT_NE(byClass("XClock"), list->windows.end());
  EXPECT_EQ(byClass("XTerm")->pid, xterm.pid());
  EXPECT_EQ(byClass("XClock")->pid, xclock.pid());
}

}  // namespace
