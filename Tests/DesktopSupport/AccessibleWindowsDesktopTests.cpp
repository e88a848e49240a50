#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/Windows/Accessible/AccessibleWindows.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/SilentServer.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using namespace DesktopSupport;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using TestSupport::FakeService;
using TestSupport::TemporaryFolder;

constexpr const char* accessible = R"xml(
    <node>
      <interface name="org.a11y.atspi.Accessible">
        <method name="GetChildren"><arg type="a(so)" direction="out"/></method>
        <method name="GetRole"><arg type="u" direction="out"/></method>
        <method name="GetState"><arg type="au" direction="out"/></method>
      </interface>
      <interface name="org.freedesktop.DBus.Properties">
        <method name="Get">
          <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
        </method>
      </interface>
    </node>)xml";

std::string listOf(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names)
    list += (list.empty() ? "" : ", ") + ("('" + name + "', '/root')");
  return list.empty() ? "(@a(so) [],)" : "(@a(so) [" + list + "],)";
}

// The words of a set of states.
std::string states(std::uint32_t low) {
  return "([uint32 " + std::to_string(low) + ", 0],)";
}
constexpr std::uint32_t active = 1U << 1;
constexpr std::uint32_t iconified = 1U << 15;
constexpr std::uint32_t visible = 1U << 30;

constexpr const char* frame = "(uint32 23,)";
constexpr const char* popupWindow = "(uint32 69,)";

// A program, or a window of one: an object that screen readers know.
class FakeAccessible : public FakeService {
 public:
  explicit FakeAccessible(const std::string& name, const char* path = "/root") : FakeService(name, path, accessible) {
    answer("Get", "(<'" + name + "'>,)");
  }

  FakeAccessible& has(const std::vector<std::string>& children) {
    answer("GetChildren", listOf(children));
    return *this;
  }

  FakeAccessible& is(const char* role, std::uint32_t state) {
    answer("GetRole", role);
    answer("GetState", states(state));
    return *this;
  }
};

// GNOME Shell without the extension.
class FakeShell : public FakeService {
 public:
  FakeShell() : FakeService("org.gnome.Shell", "/none", "<node><interface name='org.example.None'/></node>") {}
};

// The session bus is the accessibility bus too.
class FakeAccessibility {
 public:
  FakeAccessibility() { setAddress(std::getenv("DBUS_SESSION_BUS_ADDRESS")); }

  void setAddress(const std::string& address) { launcher.answer("GetAddress", "('" + address + "',)"); }

  FakeService launcher{"org.a11y.Bus", "/org/a11y/bus", R"(
      <node>
        <interface name="org.a11y.Bus"><method name="GetAddress"><arg type="s" direction="out"/></method></interface>
      </node>)"};
  FakeAccessible registry{"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
};

std::expected<WindowList, DesktopError> read(const std::filesystem::path& slice = "/no/such/slice") {
  const auto bus = SessionBus::connect();
  return bus ? readAccessibleWindows(*bus, slice) : std::unexpected(DesktopError{bus.error().message});
}

std::vector<std::string> classesIn(const std::expected<WindowList, DesktopError>& list) {
  std::vector<std::string> classes;
  if (!list)
    return {"error: " + list.error().message};
  for (const Window& window : list->windows)
    classes.push_back(window.windowClass);
  return classes;
}

TEST(AccessibleWindowsOfGNOMEShell, AreFramesThatAreVisibleOrMinimized) {
  const FakeShell shell;
  FakeAccessibility accessibility;
  accessibility.registry.has({"com.example.One", "com.example.Two"});
  FakeAccessible one("com.example.One");
  one.has({"com.example.One.Hidden", "com.example.One.Popup", "com.example.One.Frame"});
  FakeAccessible two("com.example.Two");
  two.has({"com.example.Two.Frame"});
  FakeAccessible hidden("com.example.One.Hidden");
  hidden.is(frame, 0);
  FakeAccessible popup("com.example.One.Popup");
  popup.is(popupWindow, visible);
  FakeAccessible frameOfOne("com.example.One.Frame");
  frameOfOne.is(frame, iconified);
  FakeAccessible frameOfTwo("com.example.Two.Frame");
  frameOfTwo.is(frame, visible | active);

  const auto list = read();
  ASSERT_THAT(classesIn(list), ElementsAre("com.example.One", "com.example.Two"));
  EXPECT_EQ(list->windows[0].pid, getpid());
  EXPECT_TRUE(list->windows[0].isHidden);
  EXPECT_FALSE(list->windows[1].isHidden);
  EXPECT_EQ(list->active, list->windows[1].id);
  EXPECT_FALSE(list->isComplete);
  EXPECT_THAT(list->problems, ElementsAre(HasSubstr("gnome-extensions enable gleanery@quillary.com")));
}

TEST(AccessibleWindowsOfGNOMEShell, MayBeDialogsAndAlerts) {
  const FakeShell shell;
  FakeAccessibility accessibility;
  accessibility.registry.has({"com.example.One"});
  FakeAccessible one("com.example.One");
  one.has({"com.example.One.Window"});
  FakeAccessible window("com.example.One.Window");
  for (const char* role : {"(uint32 2,)", "(uint32 16,)"}) {
    window.is(role, visible);
    EXPECT_THAT(classesIn(read()), ElementsAre("com.example.One")) << role;
  }
}

TEST(AccessibleWindowsOfGNOMEShell, AreNoneIfTheirKindOrTheirStateIsUnknown) {
  const FakeShell shell;
  FakeAccessibility accessibility;
  accessibility.registry.has({"com.example.Gone", "com.example.One"});
  FakeAccessible one("com.example.One");
  one.has({"com.example.One.Frame"});
  FakeAccessible frameOfOne("com.example.One.Frame");
  testing::internal::CaptureStderr();
  frameOfOne.is(frame, visible).answer("GetState", "(@au [],)");
  EXPECT_THAT(classesIn(read()), IsEmpty());
  frameOfOne.is(frame, visible).refuse("GetState");
  EXPECT_THAT(classesIn(read()), IsEmpty());
  frameOfOne.is(frame, visible).refuse("GetRole");
  EXPECT_THAT(classesIn(read()), IsEmpty());
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "GLib says if it is asked for what is missing";
  frameOfOne.is(frame, visible).answer("GetState", "([uint32 " + std::to_string(visible) + "],)");
  EXPECT_THAT(classesIn(read()), ElementsAre("com.example.One"));
}

TEST(AccessibleWindowsOfGNOMEShell, AreThoseOfProgramsThatAnswer) {
  const FakeShell shell;
  FakeAccessibility accessibility;
  accessibility.registry.has({"com.example.Silent", "com.example.Gone", "not a name", "", "com.example.One"});
  FakeAccessible silent("com.example.Silent");
  std::vector<TestSupport::ObjectHandle<GDBusMethodInvocation>> unanswered;
  silent.answer("GetChildren",
                [&unanswered](GDBusMethodInvocation* invocation) { unanswered.emplace_back(invocation); });
  FakeAccessible one("com.example.One");
  one.has({"com.example.One.Wrong", "com.example.One.Frame"});
  FakeAccessible wrong("com.example.One.Wrong");
  wrong.answerUnchecked("GetRole", "('frame',)");
  wrong.answerUnchecked("GetState", "(1,)");
  FakeAccessible frameOfOne("com.example.One.Frame");
  frameOfOne.is(frame, visible);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_THAT(classesIn(read()), ElementsAre("com.example.One"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, 2 * accessibilityTime);
}

TEST(AccessibleWindowsOfGNOMEShell, AreAFewHundredAtMost) {
  const FakeShell shell;
  FakeAccessibility accessibility;
  accessibility.registry.has({"com.example.One", "com.example.Two"});
  FakeAccessible one("com.example.One");
  one.has(std::vector<std::string>(300, "com.example.One.Frame"));
  FakeAccessible two("com.example.Two");
  two.has(std::vector<std::string>(300, "com.example.One.Frame"));
  FakeAccessible frameOfOne("com.example.One.Frame");
  frameOfOne.is(frame, visible);
  EXPECT_THAT(classesIn(read()), SizeIs(500));
}

TEST(AccessibleWindowsOfGNOMEShell, AreUnknownIfNothingTells) {
  const FakeShell shell;
  const auto list = read();
  ASSERT_FALSE(list);
  EXPECT_FALSE(list.error().isAbsent);
  EXPECT_THAT(list.error().message, HasSubstr("gnome-extensions enable gleanery@quillary.com"));
}

TEST(AccessibleWindowsOfGNOMEShell, AreUnknownIfTheAccessibilityBusFails) {
  const FakeShell shell;
  FakeAccessibility accessibility;
  accessibility.registry.answerUnchecked("GetChildren", "('text',)");
  EXPECT_FALSE(read());
  accessibility.setAddress("unix:path=/no/such/socket");
  EXPECT_FALSE(read());
  accessibility.launcher.refuse("GetAddress");
  EXPECT_FALSE(read());
}

TEST(AccessibleWindowsOfGNOMEShell, AreNotAskedForOverTheNetwork) {
  const FakeShell shell;
  FakeAccessibility accessibility;
  const TestSupport::SilentServer server;
  accessibility.setAddress("tcp:host=127.0.0.1,port=" + std::to_string(server.port()));
  EXPECT_FALSE(read());
  EXPECT_FALSE(server.takeConnection());
}

TEST(AccessibleWindowsOfGNOMEShell, AreTheStartedApplicationsWithoutAnAccessibilityBus) {
  const FakeShell shell;
  const TemporaryFolder slice;
  slice.write("app-gnome-com.quillary.Gleanery-100.scope/cgroup.procs", "100\n");
  slice.write("app-gnome-debian\\x2dxterm-200.scope/cgroup.procs", "200\n");
  const auto list = read(slice.path());
  ASSERT_TRUE(list) << list.error().message;
  ASSERT_THAT(list->windows, SizeIs(1));  // Gleanery is not shown in menus
  EXPECT_EQ(list->windows.front().applicationID, "debian-xterm");
  EXPECT_EQ(list->windows.front().pid, 200);
  EXPECT_FALSE(list->isComplete);
}

TEST(AccessibleWindowsOfGNOMEShell, AreAbsentIfTheShellDoesNotRun) {
  FakeAccessibility accessibility;
  const auto list = read();
  ASSERT_FALSE(list);
  EXPECT_TRUE(list.error().isAbsent);
  EXPECT_THAT(accessibility.launcher.calls(), IsEmpty());
}

}  // namespace
