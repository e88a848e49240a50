#include <type_traits>

#include <gmock/gmock.h>

#include "DeskloomSDK/InstallPluginController.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::InstallPluginController;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

static_assert(!std::is_copy_constructible_v<InstallPluginController> &&
              !std::is_copy_assignable_v<InstallPluginController>);

class InstallPluginControllerTest : public testing::Test {
 protected:
  Platform::Fake::FakeServices desktop;
};

TEST_F(InstallPluginControllerTest, AsksTheHostAndEndsTheApplication) {
  InstallPluginController().installPluginAndQuit();
  EXPECT_THAT(desktop.scripts.sources, ElementsAre("    tell application \"Deskloom\" to install plugin"));
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(InstallPluginControllerTest, OnlyAsksIfItsCallerEndsTheApplication) {
  InstallPluginController().requestInstallation();
  EXPECT_EQ(desktop.application.terminateRequests, 0);
}

TEST_F(InstallPluginControllerTest, ARequestThatFailsEndsTheApplicationAfterItsAlert) {
  desktop.alerts.whileShown = [this](const Platform::Alert&) { desktop.events.emplace_back("dismiss"); };
  desktop.scripts.fail(-600, "");
  InstallPluginController().requestInstallation();
  EXPECT_THAT(desktop.events, ElementsAre("script     tell application \"Deskloom\" to install plugin",
                                          "alert Plugin cannot be installed.", "dismiss", "terminate",
                                          "post NSApplicationWillTerminateNotification"));
}

TEST_F(InstallPluginControllerTest, IgnoresWhatTheHostReplies) {
  desktop.scripts.answerText("error: not today");
  InstallPluginController().installPluginAndQuit();
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
}

TEST_F(InstallPluginControllerTest, ShowsOneAlertInTheUsersLanguageIfTheRequestFails) {
  desktop.strings.translations["Plugin cannot be installed."] = "Das Plugin kann nicht installiert werden.";
  desktop.scripts.fail(-600, "");
  InstallPluginController().installPluginAndQuit();
  ASSERT_EQ(desktop.alerts.shown.size(), 1U);
  EXPECT_EQ(desktop.alerts.shown[0].messageText, "Das Plugin kann nicht installiert werden.");
  EXPECT_EQ(desktop.strings.comments["Plugin cannot be installed."],
            "Can't communicate with Deskloom message during plugin installation.");
  EXPECT_EQ(desktop.strings.comments[desktop.alerts.shown[0].informativeText],
            "Can't communicate with Deskloom informative text of message during plugin installation.");
  EXPECT_EQ(desktop.application.terminations, 1);
}

}  // namespace
