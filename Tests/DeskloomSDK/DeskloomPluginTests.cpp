#include <type_traits>
#include <utility>

#include <gmock/gmock.h>

#include "DeskloomSDK/DeskloomPlugin.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::DeskloomPlugin;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

constexpr DeskloomPlugin::Config bothOptions = {.askToInstallPluginIfNotInstalled = true,
                                                .alertUserThatPluginMustBeRunByDeskloomAndQuit = true};
const std::string installedQuery =
    "    tell application \"Deskloom\" to get is plugin installed at path \"/plugins/com.example.Plugin\"";
const std::string finished = "post NSApplicationDidFinishLaunchingNotification";
const std::string willTerminate = "post NSApplicationWillTerminateNotification";
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

TEST_F(DeskloomPluginTest, CannotBeCopied) {
  EXPECT_FALSE(std::is_copy_constructible_v<DeskloomPlugin>);
  EXPECT_FALSE(std::is_copy_assignable_v<DeskloomPlugin>);
}

TEST_F(DeskloomPluginTest, AsksTheHostToInstallAPluginThatItDoesNotKnowAndQuits) {
  desktop.scripts.answerText("false");
  launch(bothOptions);
  EXPECT_THAT(desktop.events, ElementsAre(finished, "script " + installedQuery, "script " + installRequest, "terminate",
                                          willTerminate));
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

TEST_F(DeskloomPluginTest, QuitsOnlyAfterTheAlertIsDismissed) {
  desktop.alerts.whileShown = [this](const Platform::Alert&) {
    EXPECT_EQ(desktop.application.terminateRequests, 0);
    desktop.events.emplace_back("dismiss");
  };
  desktop.scripts.answerText("true");
  launch(bothOptions);
  EXPECT_THAT(desktop.events,
              ElementsAre(finished, "script " + installedQuery, "alert This plugin must be run by Deskloom app.",
                          "dismiss", "terminate", willTerminate));
}

TEST_F(DeskloomPluginTest, QuitsOnlyAfterTheAlertOfAQueryThatFailedIsDismissed) {
  desktop.alerts.whileShown = [this](const Platform::Alert&) { desktop.events.emplace_back("dismiss"); };
  desktop.scripts.fail(-600, "");
  launch(bothOptions);
  EXPECT_THAT(desktop.events, ElementsAre(finished, "script " + installedQuery, "alert Could not run script", "dismiss",
                                          "terminate", willTerminate));
}

TEST_F(DeskloomPluginTest, KeepsAnInstalledPluginRunningIfTheAlertIsOff) {
  desktop.scripts.answerText("true");
  launch({.askToInstallPluginIfNotInstalled = true});
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
  EXPECT_EQ(desktop.application.terminateRequests, 0);
}

TEST_F(DeskloomPluginTest, ShowsTheErrorOfAQueryThatFailsAndQuits) {
  for (const bool alertOption : {false, true}) {
    desktop.alerts.shown.clear();
    desktop.application.restart();
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

TEST_F(DeskloomPluginTest, ShowsOneAlertIfTheHostRefusesTheInstallation) {
  desktop.scripts.answer = [&](std::string_view source) -> Platform::ScriptOutcome {
    if (source == installedQuery)
      return {.result = Platform::ScriptOutcome::Result{"false"}};
    return {.error = Platform::ScriptErrorInformation{.number = -2700, .message = "refused"}};
  };
  launch(bothOptions);
  EXPECT_THAT(desktop.events, ElementsAre(finished, "script " + installedQuery, "script " + installRequest,
                                          "alert Plugin cannot be installed.", "terminate", willTerminate, "terminate"))
      << "the request has asked to terminate, and the launch check does so too";
  ASSERT_EQ(desktop.alerts.shown.size(), 1U);
  EXPECT_EQ(desktop.alerts.shown[0].informativeText,
            "Please make sure you have the latest version of Deskloom installed. If problem occurs again, go to "
            "Preferences -> Plugins and install the plugin there.");
  EXPECT_THAT(desktop.alerts.shown[0].buttons, IsEmpty());
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(DeskloomPluginTest, ChecksNothingIfTheInstallOptionIsOff) {
  launch({.alertUserThatPluginMustBeRunByDeskloomAndQuit = true});
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
  EXPECT_EQ(desktop.application.terminateRequests, 0);
}

TEST_F(DeskloomPluginTest, TakesTheOptionsThatAreThereAtTheEndOfLaunching) {
  DeskloomPlugin plugin({});
  plugin.config = bothOptions;
  desktop.scripts.answerText("true");
  desktop.application.finishLaunching();
  EXPECT_THAT(desktop.alerts.shown, SizeIs(1));

  desktop.events.clear();
  plugin.config = {};
  desktop.notifications.post({Platform::applicationDidFinishLaunchingNotification, nullptr});
  EXPECT_THAT(desktop.events, IsEmpty());
}

TEST_F(DeskloomPluginTest, TakesTheOptionsThatAreThereWhenTheHostHasAnswered) {
  for (const auto* answer : {"true", "false"}) {
    desktop.events.clear();
    DeskloomPlugin plugin(bothOptions);
    desktop.scripts.answer = [&](std::string_view) {
      plugin.config = {};
      return Platform::ScriptOutcome{.result = Platform::ScriptOutcome::Result{answer}};
    };
    desktop.application.finishLaunching();
    EXPECT_THAT(desktop.events, ElementsAre(finished, "script " + installedQuery)) << answer;
  }
}

TEST_F(DeskloomPluginTest, TakesTheEndOfLaunchingFromWhoeverPostsIt) {
  const DeskloomPlugin plugin(bothOptions);
  desktop.scripts.answerText("true");
  const int sender = 0;
  desktop.notifications.post({Platform::applicationDidFinishLaunchingNotification, &sender});
  EXPECT_THAT(desktop.scripts.sources, SizeIs(1));
  desktop.notifications.post({Platform::applicationDidFinishLaunchingNotification, nullptr});
  EXPECT_THAT(desktop.scripts.sources, SizeIs(2));
}

TEST_F(DeskloomPluginTest, AnotherControllerCanBeMovedIn) {
  DeskloomPlugin plugin(bothOptions);
  DeskloomSDK::PluginController controller;
  controller.onRun = [](const std::string&) {};
  plugin.actionController = std::move(controller);
  EXPECT_TRUE(plugin.actionController.handleURLEvent(Platform::AppleEvent::getURL("deskloomplugin://run/A")));
  desktop.application.finishLaunching();
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
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
