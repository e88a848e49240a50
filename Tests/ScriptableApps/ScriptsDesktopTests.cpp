#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestXServer.h"

namespace {

using AppleScript::ErrorNumber;
using TestSupport::ChildProcess;
using TestSupport::FakeDeskloomHost;
using TestSupport::runScript;
using TestSupport::textOfScript;

constexpr std::string_view listProcesses = R"(
    tell application "System Events"
        set result to ""
        repeat with element in (get properties of every process where background only is false)
            set result to ((result & (get name of element) & linefeed as string) & (get POSIX path of file of element) & linefeed as string)
        end repeat
    end tell)";

TEST(Scripts, FindNoProcessesOnAnEmptyDesktop) {
  EXPECT_EQ(textOfScript("tell application \"System Events\" to count processes"), "0");
}

TEST(Scripts, ListTheProcessesOfTheDesktop) {
  const TestSupport::TestDesktop desktop;
  const ChildProcess xterm({"xterm"});
  ASSERT_TRUE(desktop.waitForClass("XTerm"));
  const ChildProcess xclock({"xclock"});
  ASSERT_TRUE(desktop.waitForClass("XClock"));
  EXPECT_EQ(textOfScript(listProcesses),
            "XTerm\n/usr/share/applications/debian-xterm.desktop\nxclock\n/usr/bin/xclock\n");
}

TEST(Scripts, ReachTheProcessesInEveryWay) {
  const TestSupport::TestDesktop desktop;
  const ChildProcess xclock({"xclock"});
  ASSERT_TRUE(desktop.waitForClass("XClock"));
  const auto ask = [](const std::string& what) {
    return textOfScript("tell application \"System Events\" to get " + what);
  };
  EXPECT_EQ(ask("name of process 1"), "xclock");
  EXPECT_EQ(ask("name of every application process"), "xclock");
  EXPECT_EQ(ask("unix id of process \"xclock\""), std::to_string(xclock.pid()));
  EXPECT_EQ(ask("displayed name of first process whose visible is true"), "xclock");
  EXPECT_EQ(ask("bundle identifier of process 1"), "no text");
  EXPECT_EQ(ask("name"), "System Events");
  EXPECT_TRUE(ask("name of process 2").starts_with("-1719") || ask("name of process 2").starts_with("-1728"));
}

TEST(Scripts, FailIfThereIsNoDesktop) {
  const TestSupport::EnvironmentVariable display("DISPLAY", std::nullopt);
  const auto result = runScript(listProcesses);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().number, ErrorNumber::notRunning);
  EXPECT_EQ(result.error().applicationName, "System Events");
}

TEST(Scripts, ReachTheHost) {
  FakeDeskloomHost host;
  for (const char* method : {"GetGlobalConfig", "GetConfig", "GetPluginFolderPath", "GetPathOfPlugin"})
    host.answer(method, "(true, 'text')");
  for (const char* method : {"SetGlobalConfig", "SetConfig", "InstallPlugin"})
    host.answer(method, "()");
  host.answer("GetIsPluginInstalledAtPath", "(true,)");
  const auto tell = [](const std::string& command) {
    return textOfScript("    tell application \"Deskloom\" to " + command);
  };
  EXPECT_EQ(tell("get global config \"B\""), "text");
  EXPECT_EQ(tell("get config \"A\""), "text");
  EXPECT_EQ(tell("get plugin folder path"), "text");
  EXPECT_EQ(tell("get path of plugin \"N\""), "text");
  EXPECT_EQ(tell("get is plugin installed at path \"/P\""), "true");
  EXPECT_THAT(tell("set global config \"T\" action bundle id \"B\""), testing::AnyOf("no value", "no text"));
  EXPECT_THAT(tell("set config \"{\\\"a\\\":1}\" action \"A\""), testing::AnyOf("no value", "no text"));
  EXPECT_THAT(tell("install plugin"), testing::AnyOf("no value", "no text"));
  EXPECT_THAT(host.calls(),
              testing::ElementsAre("GetGlobalConfig('B',)", "GetConfig('A',)", "GetPluginFolderPath()",
                                   "GetPathOfPlugin('N',)", "GetIsPluginInstalledAtPath('/P',)",
                                   "SetGlobalConfig('T', 'B')", "SetConfig('{\"a\":1}', 'A')", "InstallPlugin()"));
}

TEST(Scripts, FailIfTheHostDoesNotRun) {
  EXPECT_EQ(textOfScript("tell application \"Deskloom\" to install plugin"),
            "-600: Deskloom got an error: Application isn’t running.");
}

}  // namespace
