#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "AppleScript/Script.h"
#include "ScriptableApps/ScriptableApplications.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestXServer.h"

namespace {

using AppleScript::ErrorNumber;
using AppleScript::Result;
using AppleScript::Script;
using AppleScript::Value;
using ScriptableApps::ScriptableApplications;
using TestSupport::ChildProcess;
using TestSupport::FakeDeskloomHost;

Result<std::optional<Value>> run(std::string_view source) {
  ScriptableApplications applications;
  const auto script = Script::compile(source, applications);
  if (!script)
    return std::unexpected(script.error());
  return script->run();
}

// The text that a script yields; its error where it fails.
std::string textOf(std::string_view source) {
  const auto result = run(source);
  if (!result)
    return std::to_string(static_cast<int>(result.error().number)) + ": " + result.error().message;
  return *result ? (*result)->stringValue().value_or("no text") : "no value";
}

constexpr std::string_view listProcesses = R"(
    tell application "System Events"
        set result to ""
        repeat with element in (get properties of every process where background only is false)
            set result to ((result & (get name of element) & linefeed as string) & (get POSIX path of file of element) & linefeed as string)
        end repeat
    end tell)";

TEST(Scripts, FindNoProcessesOnAnEmptyDesktop) {
  EXPECT_EQ(textOf("tell application \"System Events\" to count processes"), "0");
}

TEST(Scripts, ListTheProcessesOfTheDesktop) {
  const TestSupport::TestDesktop desktop;
  const ChildProcess xterm({"xterm"});
  ASSERT_TRUE(desktop.waitForClass("XTerm"));
  const ChildProcess xclock({"xclock"});
  ASSERT_TRUE(desktop.waitForClass("XClock"));
  EXPECT_EQ(textOf(listProcesses), "XTerm\n/usr/share/applications/debian-xterm.desktop\nxclock\n/usr/bin/xclock\n");
}

TEST(Scripts, ReachTheProcessesInEveryWay) {
  const TestSupport::TestDesktop desktop;
  const ChildProcess xclock({"xclock"});
  ASSERT_TRUE(desktop.waitForClass("XClock"));
  const auto ask = [](const std::string& what) { return textOf("tell application \"System Events\" to get " + what); };
  EXPECT_EQ(ask("name of process 1"), "xclock");
  EXPECT_EQ(ask("name of every application process"), "xclock");
  EXPECT_EQ(ask("unix id of process \"xclock\""), std::to_string(xclock.pid()));
  EXPECT_EQ(ask("displayed name of first process whose visible is true"), "xclock");
  EXPECT_EQ(ask("bundle identifier of process 1"), "no text");
  EXPECT_EQ(ask("name"), "System Events");
  EXPECT_TRUE(ask("name of process 2").starts_with("-1719") || ask("name of process 2").starts_with("-1728"));
}

TEST(Scripts, FailWhereThereIsNoDesktop) {
  const TestSupport::EnvironmentVariable display("DISPLAY", std::nullopt);
  const auto result = run(listProcesses);
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
    return textOf("    tell application \"Deskloom\" to " + command);
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

TEST(Scripts, FailWhereTheHostDoesNotRun) {
  EXPECT_EQ(textOf("tell application \"Deskloom\" to install plugin"),
            "-600: Deskloom got an error: Application isn’t running.");
}

}  // namespace
