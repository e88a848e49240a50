// How a real process quits: what it still does, what it no longer begins, and what a fresh process does instead.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <future>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/TestInput.h"

using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using TestSupport::ChildProcess;
using TestSupport::FakeDeskloomHost;
using TestSupport::openURL;

namespace {

constexpr const char* testPlugin = "com.example.TestPlugin";
constexpr const char* gleanery = "com.quillary.Gleanery";
constexpr const char* stored = R"(SetConfig('{"count":1}', 'A'))";

std::string run(const std::string& steps) {
  return "deskloomplugin://run/" + steps;
}

class QuittingTest : public testing::Test {
 protected:
  QuittingTest() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);  // the fresh processes become children of this one
    host.answer("GetConfig", "(true, '')");
    host.answer("SetConfig", "()");
    host.answer("Open", "()");
  }
  ~QuittingTest() override { prctl(PR_SET_CHILD_SUBREAPER, 0); }

  static ChildProcess launch(const std::vector<std::string>& launchURLs, ChildProcess::Options options = {}) {
    std::vector<std::string> command = {TEST_PLUGIN_PROGRAM};
    command.insert(command.end(), launchURLs.begin(), launchURLs.end());
    return ChildProcess(command, options);
  }

  /// Longer than the delay after which a saved setting is written.
  static void letASecondPass() { std::this_thread::sleep_for(std::chrono::milliseconds(1200)); }

  [[nodiscard]] long writes() const {
    return std::ranges::count_if(host.calls(), [](const std::string& call) { return call.starts_with("SetConfig("); });
  }

  /// Waits for a window with this title, closes it, and waits until it is gone.
  void closeWindow(const std::string& title) {
    const auto window = desktop.waitForTitle(title);
    ASSERT_TRUE(window);
    desktop.watch(*window);
    EXPECT_TRUE(desktop.waitUntil([&] { return desktop.isReady(*window); }));
    desktop.askWindowManager(*window, "_NET_CLOSE_WINDOW");
    EXPECT_TRUE(desktop.waitUntil([&] { return desktop.clients().empty(); }));
  }

  /// Waits until the fresh process that another one has started ends. Yields its exit status, or 0 if the other one has
  /// already waited for it.
  static int awaitFreshProcess() {
    int status = 0;
    ::wait(&status);
    return status;
  }

  TestSupport::TestDesktop desktop;
  FakeDeskloomHost host;
};

TEST_F(QuittingTest, WritesSettingsOnceHoweverLongTheHostTakesToReceiveACommand) {
  host.answer("Open", [](GDBusMethodInvocation* invocation) {
    letASecondPass();
    g_dbus_method_invocation_return_value(invocation, nullptr);
  });
  EXPECT_EQ(launch({run("read+save+send+quit")}).wait(), 0);
  EXPECT_THAT(host.calls(), Contains(HasSubstr("deskloom://sent")));
  EXPECT_EQ(writes(), 1);
  EXPECT_EQ(host.calls().back(), stored);
}

TEST_F(QuittingTest, WritesSettingsOnceWhenTheirTimeCameWhileThePluginWasBusy) {
  EXPECT_EQ(launch({run("read+save+work+quit")}).wait(), 0);
  EXPECT_EQ(writes(), 1);
}

TEST_F(QuittingTest, ShowsNoAlertIfTheHostRefusesToStoreSettings) {
  host.refuse("SetConfig");
  host.answer("Open", [](GDBusMethodInvocation* invocation) {
    letASecondPass();
    g_dbus_method_invocation_return_value(invocation, nullptr);
  });
  for (const auto* steps : {"read+save+send+quit", "read+save+work+quit"}) {
    ChildProcess plugin = launch({run(steps)}, {.environment = {{"DISPLAY", ""}}, .captureErrors = true});
    EXPECT_EQ(plugin.readAll(), "") << steps;
    EXPECT_EQ(plugin.wait(), 0) << steps;
  }
}

TEST_F(QuittingTest, LeavesAnotherLaunchURLToAFreshProcessSoThatItsWindowStays) {
  for (const std::string action : {"run", "edit"}) {
    EXPECT_EQ(launch({run("quit"), "deskloomplugin://" + action + "/window"}).wait(), 0) << action;
    closeWindow("Test Plug-in");
    EXPECT_EQ(awaitFreshProcess(), 0) << action;
  }
}

TEST_F(QuittingTest, LeavesAnotherLaunchURLToAFreshProcessWhoseWorkIsDone) {
  EXPECT_EQ(launch({run("quit"), run("send+quit"), run("later")}).wait(), 0);
  EXPECT_EQ(awaitFreshProcess(), 0);
  EXPECT_EQ(awaitFreshProcess(), 0);
  EXPECT_THAT(host.calls(), Contains(HasSubstr("deskloom://later")));
  EXPECT_THAT(host.calls(), Contains(HasSubstr("deskloom://sent")));
}

TEST_F(QuittingTest, LeavesTextsThatLookLikeOptionsToAFreshProcessAsTheyAre) {
  EXPECT_EQ(launch({run("quit"), "--", "-x", run("send+quit")}).wait(), 0);
  EXPECT_EQ(awaitFreshProcess(), 0);
  EXPECT_THAT(host.calls(), Contains(HasSubstr("deskloom://sent")));
}

TEST_F(QuittingTest, WritesSettingsAfterTheNameIsGivenUp) {
  std::vector<bool> hadName;
  const auto lookForName = [&hadName](GVariant* reply) {
    return [&hadName, reply](GDBusMethodInvocation* invocation) {
      hadName.push_back(TestSupport::hasOwner(testPlugin));
      g_dbus_method_invocation_return_value(invocation, reply);
    };
  };
  host.answer("GetConfig", lookForName(g_variant_new_parsed("(true, '')")));
  host.answer("SetConfig", lookForName(nullptr));
  EXPECT_EQ(launch({run("read+save+quit")}).wait(), 0);
  EXPECT_THAT(hadName, testing::ElementsAre(true, false));
}

TEST_F(QuittingTest, WritesSettingsBeforeTheFreshProcessIsStarted) {
  std::promise<pid_t> process;
  std::string children = "not looked at";
  host.answer("SetConfig", [&children, pid = process.get_future().share()](GDBusMethodInvocation* invocation) {
    const std::string id = std::to_string(pid.get());
    std::ifstream list("/proc/" + id + "/task/" + id + "/children");
    children.assign(std::istreambuf_iterator<char>(list), {});
    g_dbus_method_invocation_return_value(invocation, nullptr);
  });
  ChildProcess plugin = launch({run("read+save+quit"), run("send+quit")});
  process.set_value(plugin.pid());
  EXPECT_EQ(plugin.wait(), 0);
  EXPECT_EQ(children, "") << "the fresh process may read them";
  EXPECT_EQ(awaitFreshProcess(), 0);
  EXPECT_THAT(host.calls(), Contains(HasSubstr("deskloom://sent")));
}

TEST_F(QuittingTest, LeavesAnotherLaunchURLToAFreshProcessWithoutABusToo) {
  const ChildProcess::Options withoutBus = {.environment = {{"DBUS_SESSION_BUS_ADDRESS", ""}, {"XDG_RUNTIME_DIR", ""}}};
  EXPECT_EQ(launch({run("quit"), run("window")}, withoutBus).wait(), 0);
  closeWindow("Test Plug-in");
  EXPECT_EQ(awaitFreshProcess(), 0);
}

TEST_F(QuittingTest, LeavesAWindowThatTheHostAsksForDuringTheInstallationToAFreshProcess) {
  host.answer("GetIsPluginInstalledAtPath", "(false,)");
  host.answer("InstallPlugin", [](GDBusMethodInvocation* invocation) {
    // Both on one connection, so the launch URL is queued before the plug-in hears that it is installed.
    g_dbus_connection_call(g_dbus_method_invocation_get_connection(invocation), gleanery,
                           DesktopSupport::applicationObjectPath(gleanery).c_str(),
                           DesktopSupport::applicationInterface, "Open",
                           DesktopSupport::openArguments("deskloomplugin://configure"), nullptr, G_DBUS_CALL_FLAGS_NONE,
                           -1, nullptr, nullptr, nullptr);
    g_dbus_method_invocation_return_value(invocation, nullptr);
  });
  EXPECT_EQ(ChildProcess({GLEANERY_PROGRAM}).wait(), 0);
  closeWindow("About Gleanery");
  EXPECT_EQ(awaitFreshProcess(), 0);
  TestSupport::awaitNoOwner(gleanery);
}

TEST_F(QuittingTest, MayBeAskedForAtTheEndOfLaunching) {
  EXPECT_EQ(launch({run("launched")}).wait(), 0);
  EXPECT_THAT(host.calls(), Contains(HasSubstr("deskloom://launched")));
}

class SignalTest : public QuittingTest, public testing::WithParamInterface<int> {
 protected:
  // The tests may have been started with the signal ignored, which processes inherit.
  SignalTest() { std::signal(GetParam(), SIG_DFL); }
};

TEST_P(SignalTest, IsARequestToTerminateAfterWhichSettingsAreWritten) {
  ChildProcess plugin = launch({run("read+save+send")});
  static_cast<void>(host.awaitCall("Open"));
  kill(plugin.pid(), GetParam());
  EXPECT_EQ(plugin.wait(), 0);
  EXPECT_EQ(writes(), 1);
  EXPECT_EQ(host.calls().back(), stored);
}

TEST_P(SignalTest, TakesWindowsOffTheScreen) {
  ChildProcess plugin = launch({run("window")});
  ASSERT_TRUE(desktop.waitForTitle("Test Plug-in"));
  kill(plugin.pid(), GetParam());
  EXPECT_EQ(plugin.wait(), 0);
  EXPECT_TRUE(desktop.waitUntil([&] { return desktop.clients().empty(); }));
}

TEST_P(SignalTest, EndsAtOnceIfItIsTheSecond) {
  GDBusMethodInvocation* reading = nullptr;
  host.answer("GetConfig", [&](GDBusMethodInvocation* invocation) { reading = invocation; });
  host.answer("SetConfig", [](GDBusMethodInvocation*) {});  // never answered
  ChildProcess plugin = launch({run("read+save")});
  static_cast<void>(host.awaitCall("GetConfig"));
  kill(plugin.pid(), GetParam());
  g_dbus_method_invocation_return_value(reading, g_variant_new_parsed("(true, '')"));
  static_cast<void>(host.awaitCall("SetConfig"));
  kill(plugin.pid(), SIGTERM);
  EXPECT_EQ(plugin.wait(), 128 + SIGTERM);
}

TEST_P(SignalTest, LeavesLaunchURLsThatWereAcceptedToAFreshProcess) {
  GDBusMethodInvocation* reading = nullptr;
  host.answer("GetConfig", [&](GDBusMethodInvocation* invocation) { reading = invocation; });
  ChildProcess plugin = launch({run("read+quit"), run("later")});
  static_cast<void>(host.awaitCall("GetConfig"));
  kill(plugin.pid(), GetParam());
  g_dbus_method_invocation_return_value(reading, g_variant_new_parsed("(true, '')"));
  EXPECT_EQ(plugin.wait(), 0);
  EXPECT_THAT(host.awaitCall("Open"), HasSubstr("deskloom://later"));
  EXPECT_EQ(awaitFreshProcess(), 0);
}

INSTANTIATE_TEST_SUITE_P(Sent, SignalTest, testing::Values(SIGTERM, SIGHUP), [](const auto& signal) {
  return signal.param == SIGTERM ? std::string("SIGTERM") : std::string("SIGHUP");
});

TEST_F(QuittingTest, IsAskedForByASignalAlsoIfTheProcessHasNoStreams) {
  ChildProcess plugin({"sh", "-c", R"(exec "$@" <&- >&- 2>&-)", "sh", TEST_PLUGIN_PROGRAM, run("read+save+send")});
  static_cast<void>(host.awaitCall("Open"));
  kill(plugin.pid(), SIGTERM);
  EXPECT_EQ(plugin.wait(), 0);
  EXPECT_EQ(writes(), 1);
}

TEST_F(QuittingTest, IsNotAskedForByAHangUpThatTheProcessWasStartedToIgnore) {
  ChildProcess plugin({"sh", "-c", "trap '' HUP; exec \"$@\"", "sh", TEST_PLUGIN_PROGRAM, run("send")});
  static_cast<void>(host.awaitCall("Open"));
  kill(plugin.pid(), SIGHUP);
  EXPECT_TRUE(openURL(testPlugin, run("send"))) << "it is still there";
  kill(plugin.pid(), SIGTERM);
  EXPECT_EQ(plugin.wait(), 0) << "that was the first signal";
}

}  // namespace
