#include <gmock/gmock.h>

#include "DeskloomSDK/DeskloomPlugin.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::DeskloomPlugin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr DeskloomPlugin::Config bothOptions = {.askToInstallPluginIfNotInstalled = true,
                                                .alertUserThatPluginMustBeRunByDeskloomAndQuit = true};
const std::string installedQuery =
    "    tell application \"Deskloom\" to get is plugin installed at path \"/plugins/com.example.Plugin\"";
const std::string installRequest = "    tell application \"Deskloom\" to install plugin";

class DeskloomPluginTest : public testing::Test {
 protected:
  void launch(DeskloomPlugin::Config config) {
    const DeskloomPlugin plugin(config);
    desktop.application.finishLaunching();
  }

  Platform::Fake::FakeServices desktop;
};

TEST_F(DeskloomPluginTest, HasBothOptionsOffAtFirst) {
  const DeskloomPlugin::Config config;
  EXPECT_FALSE(config.askToInstallPluginIfNotInstalled);
  EXPECT_FALSE(config.alertUserThatPluginMustBeRunByDeskloomAndQuit);
}

TEST_F(DeskloomPluginTest, AsksTheHostToInstallAPluginThatItDoesNotKnowAndQuits) {
  desktop.scripts.answerText("false");
  launch(bothOptions);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(installedQuery, installRequest));
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(DeskloomPluginTest, SaysThatTheHostMustRunAnInstalledPluginAndQuits) {
  desktop.scripts.answerText("true");
  launch(bothOptions);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(installedQuery));
  ASSERT_EQ(desktop.alerts.shown.size(), 1U);
  EXPECT_EQ(desktop.alerts.shown[0].messageText, "This plugin must be run by Deskloom app.");
  EXPECT_EQ(desktop.alerts.shown[0].informativeText, "");
  EXPECT_THAT(desktop.alerts.shown[0].buttons, ElementsAre("OK"));
  EXPECT_EQ(desktop.strings.comments["This plugin must be run by Deskloom app."],
            "Information that plugin must be run by Deskloom");
  EXPECT_EQ(desktop.strings.comments["OK"], "OK button");
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(DeskloomPluginTest, KeepsAnInstalledPluginRunningWhereTheAlertIsOff) {
  desktop.scripts.answerText("true");
  launch({.askToInstallPluginIfNotInstalled = true});
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
  EXPECT_EQ(desktop.application.terminateRequests, 0);
}

TEST_F(DeskloomPluginTest, ShowsTheErrorOfAQueryThatFailsAndQuits) {
  for (const bool alertOption : {false, true}) {
    desktop.alerts.shown.clear();
    desktop.application.terminateRequests = 0;
    desktop.scripts.fail(-600, "Application isn't running.");
    launch({.askToInstallPluginIfNotInstalled = true, .alertUserThatPluginMustBeRunByDeskloomAndQuit = alertOption});
    ASSERT_EQ(desktop.alerts.shown.size(), 1U);
    EXPECT_EQ(desktop.alerts.shown[0].messageText, "Could not run script");
    EXPECT_EQ(desktop.application.terminateRequests, 1);
  }
}

TEST_F(DeskloomPluginTest, ShowsTheErrorOfAQueryWithoutAnAnswer) {
  desktop.scripts.answerNothing();
  launch(bothOptions);
  EXPECT_EQ(desktop.alerts.shown.at(0).messageText, "Could not read data from script output");
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(DeskloomPluginTest, ShowsOneAlertWhereTheHostRefusesTheInstallation) {
  desktop.scripts.answer = [&](std::string_view source) -> Platform::ScriptOutcome {
    if (source == installedQuery)
      return {.result = Platform::ScriptOutcome::Result{"false"}};
    return {.error = Platform::ScriptErrorInformation{.number = -2700, .message = "refused"}};
  };
  launch(bothOptions);
  ASSERT_EQ(desktop.alerts.shown.size(), 1U);
  EXPECT_EQ(desktop.alerts.shown[0].messageText, "Plugin cannot be installed.");
  EXPECT_EQ(desktop.alerts.shown[0].informativeText,
            "Please make sure you have the latest version of Deskloom installed. If problem occurs again, go to "
            "Preferences -> Plugins and install the plugin there.");
  EXPECT_THAT(desktop.alerts.shown[0].buttons, IsEmpty());
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(DeskloomPluginTest, ChecksNothingWhereTheInstallOptionIsOff) {
  launch({.alertUserThatPluginMustBeRunByDeskloomAndQuit = true});
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
  EXPECT_EQ(desktop.application.terminateRequests, 0);
}

TEST_F(DeskloomPluginTest, ChecksNothingOnceAnActionWasPerformed) {
  DeskloomPlugin plugin(bothOptions);
  plugin.actionController.onRun = [](const std::string&) {};
  plugin.actionController.handleURLEvent(Platform::AppleEvent::getURL("deskloomplugin://run/A"));
  desktop.application.finishLaunching();
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
  EXPECT_EQ(desktop.application.terminateRequests, 0);
}

TEST_F(DeskloomPluginTest, EndsItsObservationsWithItsLife) {
  {
    const DeskloomPlugin plugin(bothOptions);
  }
  desktop.application.finishLaunching();
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
}

}  // namespace
