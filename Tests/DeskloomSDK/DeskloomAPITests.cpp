#include <string>
#include <type_traits>
#include <utility>

#include <gmock/gmock.h>

#include "DeskloomSDK/Host/DeskloomAPI.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::DeskloomAPI;
using DeskloomSDK::escapeForScript;
using Platform::Fake::FakeScriptEngine;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

static_assert(!std::is_copy_constructible_v<DeskloomAPI> && !std::is_copy_assignable_v<DeskloomAPI>);

class DeskloomAPITest : public testing::Test {
 protected:
  DeskloomAPITest() { desktop.bundle.entries["Identifier"] = "ExamplePluginID"; }

  /// The one script that was run.
  std::string script() {
    EXPECT_EQ(desktop.scripts.sources.size(), 1U);
    return std::exchange(desktop.scripts.sources, {}).front();
  }

  void expectNoDataError(const Platform::Error& error) {
    EXPECT_EQ(error.domain(), "com.quillary.DeskloomSDK");
    EXPECT_EQ(error.code(), 2);
    EXPECT_EQ(error.localizedDescription(), "Could not read data from script output");
    EXPECT_EQ(error.localizedFailureReason(), "");
    EXPECT_EQ(desktop.strings.comments["Could not read data from script output"], "Error");
  }

  Platform::Fake::FakeServices desktop;
  DeskloomAPI api;
};

TEST_F(DeskloomAPITest, AsksForEachThingInItsOwnWords) {
  desktop.scripts.answerText("reply");
  EXPECT_EQ(api.getGlobalConfig(), "reply");
  EXPECT_EQ(script(), "    tell application \"Deskloom\" to get global config \"ExamplePluginID\"");
  EXPECT_EQ(api.getConfig("7F3A"), "reply");
  EXPECT_EQ(script(), "    tell application \"Deskloom\" to get config \"7F3A\"");
  EXPECT_EQ(api.getPluginFolderPath(), "reply");
  EXPECT_EQ(script(), "    tell application \"Deskloom\" to get plugin folder path");
  EXPECT_EQ(api.getPluginPath("Gleanery"), "reply");
  EXPECT_EQ(script(), "    tell application \"Deskloom\" to get path of plugin \"Gleanery\"");
  EXPECT_EQ(api.isPluginInstalled("/a/b"), false);
  EXPECT_EQ(script(), "    tell application \"Deskloom\" to get is plugin installed at path \"/a/b\"");
}

TEST_F(DeskloomAPITest, TellsEachThingInItsOwnWords) {
  EXPECT_TRUE(api.setGlobalConfig(R"(a"b\c)"));
  EXPECT_EQ(script(),
            R"(    tell application "Deskloom" to set global config "a\"b\\c" action bundle id "ExamplePluginID")");
  EXPECT_TRUE(api.setConfig(R"({"k":"a\"b"})", "7F3A"));
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to set config "{\"k\":\"a\\\"b\"}" action "7F3A")");
  EXPECT_TRUE(api.installPlugin());
  EXPECT_EQ(script(), "    tell application \"Deskloom\" to install plugin");
}

TEST_F(DeskloomAPITest, SendsAnEmptyValueAsAnEmptyLiteral) {
  EXPECT_TRUE(api.setGlobalConfig(""));
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to set global config "" action bundle id "ExamplePluginID")");
}

TEST_F(DeskloomAPITest, InsertsIdentifiersNamesAndPathsAsTheyAre) {
  static_cast<void>(api.getConfig(R"(a"b\c)"));
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to get config "a"b\c")");
  static_cast<void>(api.setConfig(R"(a"b\c)", R"(a"b\c)"));
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to set config "a\"b\\c" action "a"b\c")");
  static_cast<void>(api.getPluginPath(R"(a"b\c)"));
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to get path of plugin "a"b\c")");
  static_cast<void>(api.isPluginInstalled(R"(/a"b\c)"));
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to get is plugin installed at path "/a"b\c")");
  desktop.bundle.entries["Identifier"] = R"(a"b\c)";
  static_cast<void>(api.getGlobalConfig());
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to get global config "a"b\c")");
  static_cast<void>(api.setGlobalConfig(""));
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to set global config "" action bundle id "a"b\c")");
}

TEST_F(DeskloomAPITest, LooksTheBundleIdentifierUpEachTime) {
  static_cast<void>(api.getGlobalConfig());
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to get global config "ExamplePluginID")");
  desktop.bundle.entries["Identifier"] = "AnotherID";
  static_cast<void>(api.getGlobalConfig());
  EXPECT_EQ(script(), R"(    tell application "Deskloom" to get global config "AnotherID")");
}

TEST_F(DeskloomAPITest, NeedsTheBundleIdentifierForTheGlobalConfigurationOnly) {
  desktop.bundle.entries.erase("Identifier");
  desktop.scripts.answerText("true");
  EXPECT_TRUE(api.getConfig("A"));
  EXPECT_TRUE(api.setConfig("x", "A"));
  EXPECT_TRUE(api.getPluginFolderPath());
  EXPECT_TRUE(api.getPluginPath("x"));
  EXPECT_TRUE(api.isPluginInstalled("/p"));
  EXPECT_TRUE(api.installPlugin());
}

TEST_F(DeskloomAPITest, YieldsTheReplyUnchanged) {
  for (const std::string reply : {"", " {\"a\" : 1}\n", "\t\u00e9 \U0001F642\r\n"}) {
    desktop.scripts.answerText(reply);
    EXPECT_EQ(api.getGlobalConfig(), reply);
    EXPECT_EQ(api.getConfig("A"), reply);
    EXPECT_EQ(api.getPluginFolderPath(), reply);
    EXPECT_EQ(api.getPluginPath("x"), reply);
  }
}

TEST_F(DeskloomAPITest, TakesAPluginAsInstalledOnlyIfTheAnswerIsExactlyTrue) {
  for (const auto* reply : {"false", "True", "TRUE", "yes", "true ", " true", "true\n", ""}) {
    desktop.scripts.answerText(reply);
    EXPECT_EQ(api.isPluginInstalled("/p"), false) << reply;
  }
  desktop.scripts.answerText("true");
  EXPECT_EQ(api.isPluginInstalled("/p"), true);
}

TEST_F(DeskloomAPITest, FailsWithoutAnAnswerIfOneIsNeeded) {
  for (const auto noText :
       {&FakeScriptEngine::answerNothing, &FakeScriptEngine::answerWithoutText, &FakeScriptEngine::refuse}) {
    (desktop.scripts.*noText)();
    expectNoDataError(api.getGlobalConfig().error());
    expectNoDataError(api.getConfig("A").error());
    expectNoDataError(api.getPluginFolderPath().error());
    expectNoDataError(api.isPluginInstalled("/p").error());
  }
}

TEST_F(DeskloomAPITest, SaysInTheUsersLanguageThatNoAnswerCame) {
  desktop.strings.translations["Could not read data from script output"] = "Keine Antwort";
  EXPECT_EQ(api.getConfig("A").error().localizedDescription(), "Keine Antwort");
  desktop.strings.translations["Could not read data from script output"] = "Pas de réponse";
  EXPECT_EQ(api.getConfig("A").error().localizedDescription(), "Pas de réponse");
}

TEST_F(DeskloomAPITest, HasNoPathForAPluginThatTheHostDoesNotName) {
  desktop.scripts.answerNothing();
  const auto path = api.getPluginPath("x");
  ASSERT_TRUE(path);
  EXPECT_EQ(*path, std::nullopt);
}

TEST_F(DeskloomAPITest, DoesNotLookAtTheReplyToWhatItTells) {
  desktop.scripts.answerText("error: no");
  EXPECT_TRUE(api.setGlobalConfig("x"));
  EXPECT_TRUE(api.setConfig("x", "A"));
  EXPECT_TRUE(api.installPlugin());
}

TEST_F(DeskloomAPITest, CanBeSpecialised) {
  class Remembered : public DeskloomAPI {
    [[nodiscard]] DeskloomSDK::APIResult<std::string> getConfig(std::string_view actionID) const override {
      return "of " + std::string(actionID);
    }
  };
  const Remembered remembered;
  const DeskloomAPI& general = remembered;
  EXPECT_EQ(general.getConfig("A"), "of A");
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
}

TEST_F(DeskloomAPITest, PassesTheRunnersFailureOn) {
  desktop.scripts.fail(-600, "");
  EXPECT_EQ(api.getGlobalConfig().error().code(), 1);
  EXPECT_EQ(api.setGlobalConfig("x").error().code(), 1);
  EXPECT_EQ(api.getConfig("A").error().code(), 1);
  EXPECT_EQ(api.setConfig("x", "A").error().code(), 1);
  EXPECT_EQ(api.getPluginFolderPath().error().code(), 1);
  EXPECT_EQ(api.getPluginPath("x").error().code(), 1);
  EXPECT_EQ(api.isPluginInstalled("/p").error().code(), 1);
  EXPECT_EQ(api.installPlugin().error().code(), 1);
  EXPECT_THAT(desktop.scripts.sources, SizeIs(8));
}

TEST(DeskloomAPIDeathTest, StopsTheProcessIfTheBundleHasNoIdentifier) {
  Platform::Fake::FakeServices desktop;
  desktop.bundle.entries.erase("Identifier");
  desktop.scripts.answer = [](std::string_view) -> std::optional<Platform::ScriptOutcome> {
    std::abort();  // before any script runs
  };
  EXPECT_DEATH(static_cast<void>(DeskloomAPI().getGlobalConfig()), "Fatal error: The main bundle has no identifier\\.");
  EXPECT_DEATH(static_cast<void>(DeskloomAPI().setGlobalConfig("x")),
               "Fatal error: The main bundle has no identifier\\.");
}

TEST(EscapeForScript, PutsABackslashBeforeEveryBackslashAndQuote) {
  EXPECT_EQ(escapeForScript(R"({"a":"x\y"})"), R"({\"a\":\"x\\y\"})");
  EXPECT_EQ(escapeForScript(R"(\")"), R"(\\\")");
}

TEST(EscapeForScript, LeavesEverythingElseAlone) {
  EXPECT_EQ(escapeForScript("line\nbreak\ttab é '"), "line\nbreak\ttab é '");
  EXPECT_EQ(escapeForScript(""), "");
}

}  // namespace
