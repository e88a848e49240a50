#include <gmock/gmock.h>

#include "Gleanery/App.h"
#include "Gleanery/AppDelegate.h"
#include "Platform/Fake/FakeServices.h"

using Gleanery::App;
using Gleanery::AppDelegate;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The application object lives as long as the process and hangs on the services it was made with, so all tests of this
/// suite share one desktop.
class AppDelegateTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static Platform::Fake::FakeServices shared;
    desktop = &shared;
    static AppDelegate sharedDelegate;
    delegate = &sharedDelegate;
  }

  void SetUp() override {
    desktop->workspace.opened.clear();
    desktop->scripts.sources.clear();
    App::shared().deskloomPlugin.actionController.didPerformAction = false;
  }

  static inline Platform::Fake::FakeServices* desktop = nullptr;
  static inline AppDelegate* delegate = nullptr;
};

TEST_F(AppDelegateTest, RunsTheCommandThatALaunchURLNames) {
  desktop->application.deliver("deskloomplugin://runCommand/nobody");
  EXPECT_THAT(desktop->workspace.opened, ElementsAre("deskloom://gleanery/%5B%5D"));
  EXPECT_EQ(desktop->application.terminations, 1);
  EXPECT_TRUE(App::shared().deskloomPlugin.actionController.didPerformAction);
}

TEST_F(AppDelegateTest, IgnoresALaunchURLThatIsNone) {
  for (const auto* text : {"", "other://runCommand/apps", "deskloomplugin://runcommand/apps", "a b"})
    desktop->application.deliver(text);
  EXPECT_THAT(desktop->workspace.opened, IsEmpty());
  EXPECT_FALSE(App::shared().deskloomPlugin.actionController.didPerformAction);
}

TEST_F(AppDelegateTest, DoesNothingItselfAtTheEndOfLaunching) {
  delegate->applicationDidFinishLaunching({Platform::applicationDidFinishLaunchingNotification, nullptr});
  EXPECT_THAT(desktop->scripts.sources, IsEmpty());
}

TEST_F(AppDelegateTest, SharesOneApplicationObjectWithBothLaunchOptionsOn) {
  EXPECT_EQ(&App::shared(), &App::shared());
  EXPECT_TRUE(App::shared().deskloomPlugin.config.askToInstallPluginIfNotInstalled);
  EXPECT_TRUE(App::shared().deskloomPlugin.config.alertUserThatPluginMustBeRunByDeskloomAndQuit);
}

}  // namespace
