// Launches that come while the process with the plug-in's name waits for somebody, is stopped, or dies.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <sys/wait.h>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/Bus/SessionBus.h"
#include "Linux/Launching/FreshProcesses.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/Patience.h"
#include "Tests/Support/TestDesktop.h"

using Linux::FreshProcesses;
using testing::HasSubstr;
using TestSupport::ChildProcess;
using TestSupport::FakeDeskloomHost;
using TestSupport::openURL;

namespace {

constexpr const char* testPlugin = "com.example.TestPlugin";
constexpr const char* gleanery = "com.quillary.Gleanery";
/// A launch that aborts the process, since the plug-in has no handler for it.
constexpr const char* fatal = "deskloomplugin://configure";

std::string run(const std::string& steps) {
  return "deskloomplugin://run/" + steps;
}

class BesideABusyProcessTest : public testing::Test {
 protected:
  BesideABusyProcessTest() {
    host.answer("Open", "()");
    host.answer("SetConfig", "()");
  }

  static ChildProcess launch(std::vector<std::string> launchURLs) {
    launchURLs.insert(launchURLs.begin(), TEST_PLUGIN_PROGRAM);
    return ChildProcess(launchURLs);
  }

  /// Leaves requests for the settings unanswered.
  void hangWhenAskedForSettings() {
    host.answer("GetConfig", [this](GDBusMethodInvocation* invocation) { asked = invocation; });
  }

  /// A process that waits for the host while it handles the first of its launch URLs.
  ChildProcess busyProcess(std::vector<std::string> more = {}) {
    hangWhenAskedForSettings();
    more.insert(more.begin(), run("read"));
    ChildProcess process = launch(more);
    static_cast<void>(host.awaitCall("GetConfig"));
    return process;
  }

  /// An idle process with a window.
  ChildProcess idleProcess() {
    ChildProcess process = launch({run("window")});
    EXPECT_TRUE(desktop.waitForTitle("Test Plug-in"));
    return process;
  }

  /// Tells the test plug-in to open a launch URL. Returns after the bus has passed that on.
  void sendWithoutWaiting(const std::string& launchURL) const {
    bus.callLater(
        {testPlugin, DesktopSupport::applicationObjectPath(testPlugin), DesktopSupport::applicationInterface, "Open"},
        DesktopSupport::openArguments(launchURL), TestSupport::patience, DesktopSupport::Activation::ifNeeded,
        [](const auto&) {});
    DesktopSupport::BusDaemon(bus, TestSupport::patience).synchronize();  // it answers after it has passed the call on
    TestSupport::awaitOwner(testPlugin);
  }

  void answerAboutSettings() { g_dbus_method_invocation_return_value(asked, g_variant_new_parsed("(true, '')")); }

  [[nodiscard]] long commands() const {
    return std::ranges::count_if(host.calls(), [](const std::string& call) { return call.starts_with("Open("); });
  }

  static void stop(const ChildProcess& process) {
    kill(process.pid(), SIGSTOP);
    siginfo_t state = {};
    waitid(P_PID, static_cast<id_t>(process.pid()), &state, WSTOPPED | WNOWAIT);
  }

  static bool isThere(const ChildProcess& process) {
    siginfo_t state = {};
    return waitid(P_PID, static_cast<id_t>(process.pid()), &state, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           state.si_pid == 0;
  }

  TestSupport::TestDesktop desktop;
  const DesktopSupport::SessionBus bus = DesktopSupport::SessionBus::connect().value();
  FakeDeskloomHost host;
  GDBusMethodInvocation* asked = nullptr;
};

TEST_F(BesideABusyProcessTest, ALaunchByCommandLineIsDone) {
  const ChildProcess busy = busyProcess();
  EXPECT_EQ(launch({run("send+quit")}).wait(), 0);
  EXPECT_EQ(commands(), 1);
  EXPECT_TRUE(isThere(busy));
}

TEST_F(BesideABusyProcessTest, LaunchesByTheBusAreDone) {
  constexpr long count = FreshProcesses::mostAtOnce + 8;
  const ChildProcess busy = busyProcess();
  std::vector<std::future<bool>> launches;
  for (long number = 0; number < count; ++number)
    launches.push_back(std::async(std::launch::async, [] { return openURL(testPlugin, run("send+quit")); }));
  for (auto& each : launches)
    EXPECT_TRUE(each.get());
  host.awaitCalls("Open", count);
  EXPECT_TRUE(isThere(busy));
}

TEST_F(BesideABusyProcessTest, ACallerIsToldIfTheProcessThatHasItsLaunchIsKilled) {
  const ChildProcess busy = busyProcess();
  const auto answer = DesktopSupport::SessionBus::connect().value().call(
      {testPlugin, DesktopSupport::applicationObjectPath(testPlugin), DesktopSupport::applicationInterface, "Open"},
      DesktopSupport::openArguments(run("die")), nullptr, TestSupport::patience);
  ASSERT_FALSE(answer);
  EXPECT_EQ(answer.error().message, "The process with the launch was killed.");
  EXPECT_TRUE(isThere(busy));
}

TEST_F(BesideABusyProcessTest, TheProcessQuitsOnceItIsFree) {
  ChildProcess busy = busyProcess({run("quit")});
  EXPECT_TRUE(openURL(testPlugin, run("send+quit")));
  host.awaitCalls("Open", 1);
  answerAboutSettings();
  EXPECT_EQ(busy.wait(), 0);
}

TEST_F(BesideABusyProcessTest, ALaunchURLOfAnyLengthIsDone) {
  GDBusMethodInvocation* question = nullptr;
  host.answer("GetIsPluginInstalledAtPath", [&](GDBusMethodInvocation* invocation) { question = invocation; });
  ChildProcess busy({GLEANERY_PROGRAM});
  static_cast<void>(host.awaitCall("GetIsPluginInstalledAtPath"));
  EXPECT_TRUE(openURL(gleanery, "deskloomplugin://runCommand/" + std::string(1 << 20, 'a')));
  EXPECT_THAT(host.awaitCall("Open"), HasSubstr("deskloom://gleanery/%5B%5D"));
  EXPECT_TRUE(isThere(busy));
}

TEST_F(BesideABusyProcessTest, ACallerIsToldInTimeThatItsLaunchHasBegun) {
  const ChildProcess idle = idleProcess();
  hangWhenAskedForSettings();
  EXPECT_TRUE(openURL(testPlugin, run("read"))) << "it is not done yet";
  EXPECT_EQ(launch({run("send+quit")}).wait(), 0);
  EXPECT_EQ(commands(), 1);
}

TEST_F(BesideABusyProcessTest, ALaunchIsDoneOnceIfTheProcessIsStoppedForAWhile) {
  const ChildProcess idle = idleProcess();
  stop(idle);
  EXPECT_EQ(launch({run("send+quit")}).wait(), 0);
  EXPECT_EQ(commands(), 1);
  kill(idle.pid(), SIGCONT);
  EXPECT_TRUE(openURL(testPlugin, run("send"))) << "it comes after what was sent meanwhile";
  host.awaitCalls("Open", 2);
  kill(idle.pid(), SIGTERM);
  TestSupport::awaitNoOwner(testPlugin);
  EXPECT_EQ(commands(), 2);
}

TEST_F(BesideABusyProcessTest, ALaunchIsDoneIfTheProcessIsKilled) {
  const ChildProcess idle = idleProcess();
  stop(idle);
  ChildProcess other = launch({run("send+quit")});
  kill(idle.pid(), SIGKILL);
  EXPECT_EQ(other.wait(), 0);
  EXPECT_EQ(commands(), 1);
}

TEST_F(BesideABusyProcessTest, AnIdleProcessTakesWhatComes) {
  const ChildProcess idle = idleProcess();
  EXPECT_EQ(launch({run("send")}).wait(), 0) << "it would not quit by itself";
  host.awaitCalls("Open", 1);
  EXPECT_TRUE(isThere(idle));
}

TEST_F(BesideABusyProcessTest, AnIdleProcessTakesAnActivation) {
  const ChildProcess idle = idleProcess();
  EXPECT_EQ(launch({}).wait(), 0) << "it would not quit by itself";
  EXPECT_TRUE(isThere(idle));
}

class FreshProcessTest : public BesideABusyProcessTest {
 protected:
  static constexpr const char* option = "--read-launch-urls";
};

TEST_F(FreshProcessTest, LeavesNothingToAnother) {
  const ChildProcess idle = idleProcess();
  EXPECT_EQ(launch({option, fatal}).wait(), 128 + SIGABRT);
  EXPECT_TRUE(isThere(idle));
}

TEST_F(FreshProcessTest, TakesTheNameIfItStays) {
  const ChildProcess fresh = launch({option, run("window")});
  TestSupport::awaitOwner(testPlugin);
  EXPECT_EQ(launch({run("send")}).wait(), 0) << "it would not quit by itself";
  host.awaitCalls("Open", 1);
}

TEST_F(FreshProcessTest, TakesNoNameOnceItQuits) {
  GDBusMethodInvocation* opening = nullptr;
  host.answer("Open", [&](GDBusMethodInvocation* invocation) { opening = invocation; });
  ChildProcess fresh = launch({option, run("send+quit")});
  static_cast<void>(host.awaitCall("Open"));
  std::this_thread::sleep_for(std::chrono::milliseconds(1200));  // it would have the name by now
  EXPECT_FALSE(TestSupport::hasOwner(testPlugin));
  g_dbus_method_invocation_return_value(opening, nullptr);
  EXPECT_EQ(fresh.wait(), 0);
}

class AbortTest : public BesideABusyProcessTest {};

TEST_F(AbortTest, LeavesTheOtherLaunchURLsOfTheCommandLineToAFreshProcess) {
  EXPECT_EQ(launch({fatal, run("send+quit"), run("send+quit")}).wait(), 128 + SIGABRT);
  host.awaitCalls("Open", 2);
}

TEST_F(AbortTest, LeavesWhatHasComeByTheBusToAFreshProcess) {
  ChildProcess busy = busyProcess({fatal});
  sendWithoutWaiting(run("send+quit"));
  answerAboutSettings();
  EXPECT_EQ(busy.wait(), 128 + SIGABRT);
  EXPECT_THAT(host.awaitCall("Open"), HasSubstr("deskloom://sent"));
}

TEST_F(AbortTest, IsWhatItsSignalFromAnotherProcessAsksFor) {
  ChildProcess idle = idleProcess();
  kill(idle.pid(), SIGABRT);
  EXPECT_EQ(idle.wait(), 128 + SIGABRT);
}

TEST_F(AbortTest, IsNoErrorForWhoeverForwardedTheLaunch) {
  ChildProcess idle = idleProcess();
  EXPECT_EQ(launch({fatal}).wait(), 0);
  EXPECT_EQ(idle.wait(), 128 + SIGABRT);
}

}  // namespace
