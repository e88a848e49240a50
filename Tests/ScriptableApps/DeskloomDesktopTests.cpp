#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Value.h"
#include "ScriptableApps/Deskloom/Deskloom.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/FakeDeskloomHost.h"

namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using AppleScript::Arguments;
using AppleScript::ErrorNumber;
using AppleScript::Result;
using AppleScript::Value;
using ScriptableApps::Deskloom;
using TestSupport::EnvironmentVariable;
using TestSupport::FakeDeskloomHost;

Result<Value> run(std::string_view command, const Arguments& arguments, std::chrono::milliseconds patience = 60s) {
  Deskloom deskloom(patience);
  const auto commands = deskloom.dictionary().commands;
  const auto found = std::ranges::find(commands, command, &AppleScript::CommandDescription::name);
  if (found == commands.end())
    return std::unexpected(AppleScript::ScriptError{.message = "no such command"});
  return found->run(deskloom, arguments);
}

Arguments with(const std::string& direct) {
  return Arguments(Value(direct));
}

Arguments with(const std::string& direct, std::string_view label, const std::string& value) {
  Arguments arguments(Value{direct});
  arguments.setLabelled(label, Value(value));
  return arguments;
}

class DeskloomTest : public testing::Test {
 protected:
  void expectCall(const std::string& call) { EXPECT_THAT(host_.calls(), testing::ElementsAre(call)); }

  FakeDeskloomHost host_;
};

TEST_F(DeskloomTest, GetsTheGlobalConfiguration) {
  host_.answer("GetGlobalConfig", "(true, '{\"a\":1}')");
  EXPECT_EQ(run("get global config", with("com.example.Plugin"))->stringValue(), "{\"a\":1}");
  expectCall("GetGlobalConfig('com.example.Plugin',)");
}

TEST_F(DeskloomTest, SetsTheGlobalConfiguration) {
  host_.answer("SetGlobalConfig", "()");
  const auto result = run("set global config", with("text", "action bundle id", "com.example.Plugin"));
  ASSERT_TRUE(result);
  EXPECT_TRUE(result->isMissing());
  expectCall("SetGlobalConfig('text', 'com.example.Plugin')");
}

TEST_F(DeskloomTest, GetsAnActionsConfiguration) {
  host_.answer("GetConfig", "(true, 'text')");
  EXPECT_EQ(run("get config", with("ID"))->stringValue(), "text");
  expectCall("GetConfig('ID',)");
}

TEST_F(DeskloomTest, SetsAnActionsConfiguration) {
  host_.answer("SetConfig", "()");
  EXPECT_TRUE(run("set config", with("text", "action", "ID"))->isMissing());
  expectCall("SetConfig('text', 'ID')");
}

TEST_F(DeskloomTest, GetsThePluginFolder) {
  host_.answer("GetPluginFolderPath", "(true, '/plug-ins')");
  EXPECT_EQ(run("get plugin folder path", {})->stringValue(), "/plug-ins");
  expectCall("GetPluginFolderPath()");
}

TEST_F(DeskloomTest, GetsThePathOfAPlugin) {
  host_.answer("GetPathOfPlugin", "(true, '/plug-ins/a')");
  EXPECT_EQ(run("get path of plugin", with("a"))->stringValue(), "/plug-ins/a");
  expectCall("GetPathOfPlugin('a',)");
}

TEST_F(DeskloomTest, TellsWhetherAPluginIsInstalled) {
  host_.answer("GetIsPluginInstalledAtPath", "(true,)");
  EXPECT_EQ(run("get is plugin installed at path", with("/a"))->stringValue(), "true");
  host_.answer("GetIsPluginInstalledAtPath", "(false,)");
  EXPECT_EQ(run("get is plugin installed at path", with("/a"))->stringValue(), "false");
}

TEST_F(DeskloomTest, InstallsThePlugin) {
  host_.answer("InstallPlugin", "()");
  EXPECT_TRUE(run("install plugin", {})->isMissing());
  expectCall("InstallPlugin()");
}

TEST_F(DeskloomTest, SucceedsWithoutAValueIfTheHostHasNone) {
  host_.answer("GetConfig", "(false, 'ignored')");
  const auto result = run("get config", with("ID"));
  ASSERT_TRUE(result);
  EXPECT_TRUE(result->isMissing());
  EXPECT_EQ(result->stringValue(), std::nullopt);
}

TEST_F(DeskloomTest, DistinguishesAnEmptyTextFromNone) {
  host_.answer("GetConfig", "(true, '')");
  EXPECT_EQ(run("get config", with("ID"))->stringValue(), "");
}

TEST_F(DeskloomTest, PassesTextsUnaltered) {
  host_.answer("SetConfig", "()");
  const std::string text = "Größe 🙂\n\r\t\"\\" + std::string(5 << 20, 'x');
  ASSERT_TRUE(run("set config", with(text, "action", "ID")));
  std::string received;
  host_.answer("SetConfig", [&](auto* invocation) {
    GVariant* arguments = g_dbus_method_invocation_get_parameters(invocation);
    const char* sent = nullptr;
    g_variant_get_child(arguments, 0, "&s", &sent);
    received = sent;
    g_dbus_method_invocation_return_value(invocation, nullptr);
  });
  ASSERT_TRUE(run("set config", with(text, "action", "ID")));
  EXPECT_TRUE(received == text);
}

TEST_F(DeskloomTest, FailsIfATextCannotBeSent) {
  for (const std::string& text : {"a\0b"s, "\xff"s}) {
    const auto result = run("get config", with(text));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().number, ErrorNumber::genericError);
    EXPECT_EQ(result.error().applicationName, "Deskloom");
  }
  EXPECT_TRUE(host_.calls().empty());
}

TEST_F(DeskloomTest, FailsIfAParameterIsMissing) {
  EXPECT_EQ(run("get config", {}).error().number, ErrorNumber::missingParameter);
  EXPECT_EQ(run("set config", with("text")).error().number, ErrorNumber::missingParameter);
  EXPECT_TRUE(host_.calls().empty());
}

TEST_F(DeskloomTest, PassesTheHostsErrorOn) {
  host_.answer("InstallPlugin", [](auto* invocation) {
    g_dbus_method_invocation_return_dbus_error(invocation, "com.quillary.Deskloom.Error.Disk", "The disk is full.");
  });
  const auto result = run("install plugin", {});
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().number, ErrorNumber::genericError);
  EXPECT_EQ(result.error().message, "Deskloom got an error: The disk is full.");
  EXPECT_EQ(result.error().applicationName, "Deskloom");
}

TEST_F(DeskloomTest, FailsIfTheHostRefusesAccess) {
  host_.answer("InstallPlugin", [](auto* invocation) {
    g_dbus_method_invocation_return_dbus_error(invocation, "org.freedesktop.DBus.Error.AccessDenied", "Not allowed.");
  });
  const auto result = run("install plugin", {});
  EXPECT_EQ(result.error().number, ErrorNumber::accessNotAllowed);
  EXPECT_EQ(result.error().message, "Deskloom got an error: Not allowed.");
}

TEST_F(DeskloomTest, FailsIfTheHostAnswersSomethingElse) {
  host_.answerUnchecked("GetConfig", "('text',)");
  const auto result = run("get config", with("ID"));
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().number, ErrorNumber::genericError);
}

TEST_F(DeskloomTest, HasSetWhateverTheHostAnswersToThat) {
  for (const auto* method : {"SetGlobalConfig", "SetConfig", "InstallPlugin"})
    host_.answerUnchecked(method, "('error: the disk is full', 7)");
  EXPECT_TRUE(run("set global config", with("text", "action bundle id", "com.example.Plugin"))->isMissing());
  EXPECT_TRUE(run("set config", with("text", "action", "ID"))->isMissing());
  EXPECT_TRUE(run("install plugin", {})->isMissing());
}

TEST_F(DeskloomTest, FailsIfTheHostStaysSilent) {
  host_.answer("GetConfig", [](auto* invocation) { g_object_unref(invocation); });
  const auto result = run("get config", with("ID"), 50ms);
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().number, ErrorNumber::timedOut);
  EXPECT_EQ(result.error().message, "Deskloom got an error: AppleEvent timed out.");
}

TEST_F(DeskloomTest, FailsIfTheHostQuitsMeanwhile) {
  host_.answer("GetConfig", [this](auto* invocation) {
    host_.disappear();
    g_object_unref(invocation);
  });
  EXPECT_EQ(run("get config", with("ID")).error().number, ErrorNumber::notRunning);
}

TEST(DeskloomWithoutAHost, IsNotRunning) {
  const auto result = run("install plugin", {});
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().number, ErrorNumber::notRunning);
  EXPECT_EQ(result.error().message, "Deskloom got an error: Application isn’t running.");
}

TEST(DeskloomWithoutAHost, IsNotRunningWithoutABus) {
  const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
  const EnvironmentVariable runtimeFolder("XDG_RUNTIME_DIR", std::nullopt);
  EXPECT_EQ(run("install plugin", {}).error().number, ErrorNumber::notRunning);
}

TEST(DeskloomWithoutAHost, HasItsName) {
  Deskloom deskloom;
  const auto root = deskloom.open();
  ASSERT_TRUE(root);
  const auto& properties = (*root)->classDescription().properties;
  ASSERT_EQ(properties.size(), 1U);
  EXPECT_EQ(properties[0].get(**root)->stringValue(), "Deskloom");
}

}  // namespace
