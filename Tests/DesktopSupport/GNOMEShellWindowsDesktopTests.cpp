#include <chrono>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/Windows/GNOMEShell/GNOMEShellWindows.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/GIOHandles.h"

namespace {

using namespace DesktopSupport;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using TestSupport::FakeService;

constexpr const char* oneWindow =
    "(uint32 1, [{'id': <uint32 7>, 'title': <'One'>, 'gtk-unique-bus-name': <':1.1'>, "
    "'gtk-window-object-path': <'/window/1'>}])";

// A Shell with the extension, which lists no windows until it gets an answer.
class FakeShell : public FakeService {
 public:
  explicit FakeShell(const char* path = "/com/quillary/Gleanery/Windows")
      : FakeService("org.gnome.Shell", path, R"(
          <node>
            <interface name="com.quillary.Gleanery.Windows">
              <method name="List">
                <arg type="u" direction="out"/>
                <arg type="aa{sv}" direction="out"/>
              </method>
            </interface>
          </node>)") {}
};

DesktopError errorOf(const std::expected<WindowList, DesktopError>& list) {
  return list ? DesktopError{} : list.error();
}

TEST(GNOMEShell, ListsItsWindows) {
  FakeShell shell;
  shell.answer("List", oneWindow);
  const auto list = readGNOMEShellWindows();
  ASSERT_TRUE(list) << list.error().message;
  ASSERT_EQ(list->windows.size(), 1U);
  EXPECT_EQ(list->windows.front().title, "One");
  EXPECT_THAT(readGNOMEShellGTKWindows(), ElementsAre(GTKWindowName{":1.1", "/window/1"}));
}

TEST(GNOMEShell, IsAbsentIfItDoesNotRun) {
  const auto error = errorOf(readGNOMEShellWindows());
  EXPECT_EQ(error.message, "GNOME Shell does not run.");
  EXPECT_TRUE(error.isAbsent);
  EXPECT_THAT(readGNOMEShellGTKWindows(), IsEmpty());
}

TEST(GNOMEShell, IsAbsentWithoutASessionBus) {
  const TestSupport::EnvironmentVariable bus("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
  const TestSupport::EnvironmentVariable folder("XDG_RUNTIME_DIR", std::nullopt);
  EXPECT_TRUE(errorOf(readGNOMEShellWindows()).isAbsent);
  EXPECT_THAT(readGNOMEShellGTKWindows(), IsEmpty());
}

TEST(GNOMEShell, IsAbsentWithoutTheExtension) {
  const FakeShell shell("/elsewhere");
  const auto error = errorOf(readGNOMEShellWindows());
  EXPECT_THAT(error.message, HasSubstr("gleanery@quillary.com"));
  EXPECT_TRUE(error.isAbsent);
}

TEST(GNOMEShell, IsAbsentIfTheAnswerSaysThatSomethingIsMissing) {
  FakeShell shell;
  for (const char* name : {"UnknownMethod", "UnknownObject", "UnknownInterface", "ServiceUnknown", "NameHasNoOwner"}) {
    shell.answer("List", [name](GDBusMethodInvocation* invocation) {
      g_dbus_method_invocation_return_dbus_error(invocation,
                                                 (std::string("org.freedesktop.DBus.Error.") + name).c_str(), "No.");
    });
    EXPECT_TRUE(errorOf(readGNOMEShellWindows()).isAbsent) << name;
  }
}

TEST(GNOMEShell, FailsIfTheExtensionFails) {
  const FakeShell shell;
  const auto error = errorOf(readGNOMEShellWindows());
  EXPECT_EQ(error.message, "GNOME Shell does not list its windows: No answer is set.");
  EXPECT_FALSE(error.isAbsent);
}

TEST(GNOMEShell, FailsIfTheAnswerHasAnotherType) {
  FakeShell shell;
  shell.answerUnchecked("List", "('text',)");
  const auto error = errorOf(readGNOMEShellWindows());
  EXPECT_THAT(error.message, HasSubstr("malformed"));
  EXPECT_FALSE(error.isAbsent);
}

TEST(GNOMEShell, FailsIfItDisappears) {
  FakeShell shell;
  shell.answer("List", [&shell](GDBusMethodInvocation* invocation) {
    const TestSupport::ObjectHandle<GDBusMethodInvocation> unanswered(invocation);
    shell.disappear();
  });
  EXPECT_FALSE(errorOf(readGNOMEShellWindows()).isAbsent);
}

TEST(GNOMEShell, IsGivenUpIfItDoesNotAnswer) {
  FakeShell shell;
  TestSupport::ObjectHandle<GDBusMethodInvocation> unanswered;
  shell.answer("List", [&unanswered](GDBusMethodInvocation* invocation) { unanswered.reset(invocation); });
  const auto bus = SessionBus::connect();
  ASSERT_TRUE(bus);
  const auto error = errorOf(readGNOMEShellWindows(*bus, std::chrono::milliseconds(50)));
  EXPECT_EQ(error.message, "GNOME Shell does not answer.");
  EXPECT_FALSE(error.isAbsent);
}

}  // namespace
