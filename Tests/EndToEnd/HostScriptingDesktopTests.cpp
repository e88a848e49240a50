// The host scripting API from end to end: real scripts, run by the real interpreter, sent over the real bus to the real
// development host.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/Host/DeskloomAPI.h"
#include "Linux/Services.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/TemporaryFolder.h"

using DeskloomSDK::DeskloomAPI;
using testing::IsEmpty;
using TestSupport::HostProcess;
using TestSupport::TemporaryFolder;

namespace {

constexpr int scriptFailed = 1;

/// Texts that string literals, lines or the encoding of a script could get wrong.
std::vector<std::string> difficultTexts() {
  return {"",
          " blanks around ",
          R"({"k":"a\"b","path":"C:\\new\table","u":"\u00e9"})",
          R"(""" \\\ \" & "x" & (get config "A") -- no comment (* none *))",
          "line\nbreaks\r\nof\rall\n\n\u2028kinds\u0085\f\v",
          "\ttabs\t",
          "Größe 日本語 e\u0301 🙂👩‍👩‍👧‍👦 \u202Eright to left",
          "«data utxt0041» ‘curly’ “quotes” ¬ ≠",
          "missing value",
          std::string(1 << 20, '"')};
}

class HostScriptingTest : public testing::Test {
 protected:
  HostScriptingTest() { bundleSays("[Bundle]\nIdentifier=com.example.Plugin\n"); }

  void bundleSays(std::string_view information) {
    folder_.write("Info.ini", information);
    desktop.bundle = Linux::Bundle(folder_.path());
  }

  TemporaryFolder folder_;
  Linux::Services desktop;
  HostProcess host{DESKLOOM_HOST_PROGRAM, {"--plugin-folder", "/plug-ins of \"mine\""}};
  DeskloomAPI api;
};

TEST_F(HostScriptingTest, BringsAnActionsConfigurationBackAsItWasSet) {
  for (const std::string& text : difficultTexts()) {
    ASSERT_TRUE(api.setConfig(text, "7F3A")) << text.substr(0, 80);
    const auto config = api.getConfig("7F3A");
    ASSERT_TRUE(config) << text.substr(0, 80);
    EXPECT_TRUE(*config == text) << config->substr(0, 80);
  }
}

TEST_F(HostScriptingTest, BringsThePluginsConfigurationBackAsItWasSet) {
  for (const std::string& text : difficultTexts()) {
    ASSERT_TRUE(api.setGlobalConfig(text)) << text.substr(0, 80);
    const auto config = api.getGlobalConfig();
    ASSERT_TRUE(config) << text.substr(0, 80);
    EXPECT_TRUE(*config == text) << config->substr(0, 80);
  }
}

TEST_F(HostScriptingTest, KeepsActionsAndPluginsApart) {
  EXPECT_TRUE(api.setConfig("of A", "A"));
  EXPECT_TRUE(api.setConfig("of the action", "com.example.Plugin"));
  EXPECT_TRUE(api.setGlobalConfig("of the plug-in"));
  EXPECT_EQ(api.getConfig("A"), "of A");
  EXPECT_EQ(api.getConfig("com.example.Plugin"), "of the action");
  EXPECT_EQ(api.getGlobalConfig(), "of the plug-in");

  bundleSays("[Bundle]\nIdentifier=com.example.Other\n");
  EXPECT_EQ(api.getGlobalConfig(), "");
}

TEST_F(HostScriptingTest, IsGivenTheEmptyTextIfNothingWasSet) {
  EXPECT_EQ(api.getConfig("A"), "");
  EXPECT_EQ(api.getGlobalConfig(), "");
}

TEST_F(HostScriptingTest, NamesThePluginFolder) {
  EXPECT_EQ(api.getPluginFolderPath(), "/plug-ins of \"mine\"");
}

TEST_F(HostScriptingTest, InstallsThePlugin) {
  EXPECT_EQ(api.isPluginInstalled("/any"), false);
  EXPECT_EQ(api.getPluginPath("Gleanery"), std::nullopt);
  EXPECT_TRUE(api.installPlugin());
  EXPECT_EQ(host.nextLine(), "install plugin");
  EXPECT_EQ(api.isPluginInstalled("/any"), true);
  EXPECT_EQ(api.getPluginPath("Gleanery é"), "/plug-ins of \"mine\"/Gleanery é");
}

TEST_F(HostScriptingTest, FailsOverAnArgumentThatEndsItsLiteral) {
  for (const auto* argument : {"\"", "a\"b", "a\" b \"c", "\\", "a\"\nget config \"b"}) {
    EXPECT_EQ(api.getConfig(argument).error().code(), scriptFailed) << argument;
    EXPECT_EQ(api.setConfig("value", argument).error().code(), scriptFailed) << argument;
    EXPECT_EQ(api.getPluginPath(argument).error().code(), scriptFailed) << argument;
    EXPECT_EQ(api.isPluginInstalled(argument).error().code(), scriptFailed) << argument;
  }
  EXPECT_THAT(host.linesSoFar(), IsEmpty());
}

TEST_F(HostScriptingTest, DoesWithoutABundleIdentifierIfItCan) {
  for (const auto* information : {"", "[Bundle]\nName=Nameless\n", "no such format", "[Bundle]\nIdentifier=\n"}) {
    bundleSays(information);
    EXPECT_TRUE(api.setConfig("x", "A"));
    EXPECT_EQ(api.getConfig("A"), "x");
    EXPECT_TRUE(api.getPluginFolderPath());
    EXPECT_TRUE(api.getPluginPath("x"));
    EXPECT_TRUE(api.isPluginInstalled("/p"));
    EXPECT_TRUE(api.installPlugin());
    EXPECT_EQ(host.nextLine(), "install plugin");
  }
}

TEST(HostScriptingDeathTest, StopsTheProcessOverTheGlobalConfigurationOfABundleWithoutIdentifier) {
  const TemporaryFolder folder;
  Linux::Services desktop;
  const auto expectDeath = [&] {
    desktop.bundle = Linux::Bundle(folder.path());
    const auto* message = "^Fatal error: The main bundle has no identifier\\.: file DeskloomAPI\\.cpp, line [0-9]+\n$";
    EXPECT_DEATH(static_cast<void>(DeskloomAPI().getGlobalConfig()), message);
    EXPECT_DEATH(static_cast<void>(DeskloomAPI().setGlobalConfig("x")), message);
  };
  expectDeath();
  folder.write("Info.ini", "[Bundle]\nName=Nameless\n");
  expectDeath();
}

TEST(GleaneryWithoutAnInformationFile, StillSendsWhatItGathers) {
  const TemporaryFolder folder;
  HostProcess host(DESKLOOM_HOST_PROGRAM);
  const std::filesystem::path program = folder.path() / "gleanery";
  std::filesystem::copy_file(GLEANERY_PROGRAM, program);
  for (const std::string information : {"", "[Bundle]\nName=Nameless\n"}) {
    if (!information.empty())
      folder.write("Info.ini", information);
    EXPECT_EQ(TestSupport::run({program, "deskloomplugin://runCommand/apps"}), 0);
    EXPECT_EQ(host.nextLine(), "deskloom://gleanery/%5B%5D");
    EXPECT_EQ(TestSupport::run({program, "deskloomplugin://runCommand/a", "deskloomplugin://runCommand/b"}), 0);
    EXPECT_EQ(host.nextLine(), "deskloom://gleanery/%5B%5D");
    EXPECT_EQ(host.nextLine(), "deskloom://gleanery/%5B%5D");
  }
}

TEST(GleaneryWithoutAnInformationFile, StillHasItselfInstalled) {
  const TemporaryFolder folder;
  HostProcess host(DESKLOOM_HOST_PROGRAM);
  const std::filesystem::path program = folder.path() / "gleanery";
  std::filesystem::copy_file(GLEANERY_PROGRAM, program);
  EXPECT_EQ(TestSupport::run({program}), 0);
  EXPECT_EQ(host.nextLine(), "install plugin");
}

}  // namespace
