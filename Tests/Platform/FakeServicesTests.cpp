#include <gmock/gmock.h>

#include "Platform/Fake/FakeServices.h"

using testing::ElementsAre;

namespace {

class FakeServicesTest : public testing::Test {
 protected:
  Platform::Fake::FakeServices desktop;
};

TEST_F(FakeServicesTest, RecordWhatHappensInOneOrder) {
  const auto& services = Platform::services();
  services.updater->checkForUpdatesInBackground();
  services.scripts.run("first");
  services.alerts.runModal({.messageText = "Message", .informativeText = "more"});
  services.workspace.open(Platform::URL::parse("x:y").value());
  services.log.write("a line");
  desktop.application.finishLaunching();
  services.application->terminate();
  services.application->terminate();
  EXPECT_THAT(desktop.events, ElementsAre("check for updates", "script first", "alert Message", "open x:y",
                                          "log a line", "post NSApplicationDidFinishLaunchingNotification", "terminate",
                                          "post NSApplicationWillTerminateNotification", "terminate"));
}

TEST_F(FakeServicesTest, LetATestActWhileAnAlertIsUp) {
  desktop.alerts.whileShown = [this](const Platform::Alert& alert) {
    EXPECT_EQ(desktop.alerts.shown.size(), 1U);
    EXPECT_EQ(alert.messageText, "Message");
    desktop.application.terminate();
    desktop.events.emplace_back("dismiss");
  };
  Platform::services().alerts.runModal({.messageText = "Message"});
  EXPECT_THAT(desktop.events,
              ElementsAre("alert Message", "terminate", "post NSApplicationWillTerminateNotification", "dismiss"));
}

TEST_F(FakeServicesTest, TerminateAgainAfterARestart) {
  desktop.application.terminate();
  desktop.application.restart();
  EXPECT_EQ(desktop.application.terminateRequests, 0);
  EXPECT_EQ(desktop.application.terminations, 0);
  EXPECT_FALSE(desktop.application.isTerminating());
  desktop.application.terminate();
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST(FakeServices, RecordNothingOnTheirOwn) {
  Platform::AppleEventManager appleEvents;
  Platform::NotificationCenter notifications;
  Platform::Fake::FakeApplication application(appleEvents, notifications);
  application.terminate();
  Platform::Fake::FakeAlerts alerts;
  alerts.runModal({.messageText = "Message"});
  EXPECT_EQ(application.terminations, 1);
  EXPECT_EQ(alerts.shown.size(), 1U);
}

}  // namespace
