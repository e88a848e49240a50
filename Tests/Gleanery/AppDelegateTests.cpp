#include <type_traits>

#include <gmock/gmock.h>

#include "Gleanery/App.h"
#include "Gleanery/AppDelegate.h"
#include "Platform/Fake/FakeServices.h"

using Gleanery::App;
using Gleanery::AppDelegate;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

static_assert(!std::is_copy_constructible_v<App> && !std::is_copy_assignable_v<App>);

/// The application object uses the services it was made with until the process ends, so all tests of this suite share
/// one desktop.
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
    desktop->application.restart();
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

TEST_F(AppDelegateTest, HasNoRunControllers) {
  const std::vector<std::unique_ptr<Platform::WindowController>>& controllers = delegate->runControllers();
  EXPECT_THAT(controllers, IsEmpty());
  desktop->application.deliver("deskloomplugin://configure");
  desktop->application.deliver("deskloomplugin://runCommand/nobody");
  EXPECT_THAT(controllers, IsEmpty());
}

TEST_F(AppDelegateTest, ChecksForUpdatesOnce) {
  EXPECT_EQ(desktop->updater.checks, 1);
}

TEST_F(AppDelegateTest, ShowsTheAboutWindowAboveOthersAndEachTimeTheSame) {
  desktop->application.deliver("deskloomplugin://configure");
  ASSERT_THAT(desktop->windows.made, SizeIs(1));
  const auto& about = *desktop->windows.made[0];
  EXPECT_TRUE(about.isVisible);
  EXPECT_EQ(about.level, 4);
  EXPECT_EQ(about.window->delegate(), delegate);
  EXPECT_TRUE(App::shared().deskloomPlugin.actionController.didPerformAction);

  const int before = about.timesOrderedFront;
  desktop->application.deliver("deskloomplugin://configure");
  EXPECT_THAT(desktop->windows.made, SizeIs(1));
  EXPECT_EQ(about.timesOrderedFront, before + 1);
}

TEST_F(AppDelegateTest, ClosingTheAboutWindowTerminates) {
  desktop->application.deliver("deskloomplugin://configure");
  const int before = desktop->application.terminateRequests;
  desktop->windows.made[0]->window->close();
  EXPECT_EQ(desktop->application.terminateRequests, before + 1);
}

TEST_F(AppDelegateTest, OffersNoShareMessageAndNoMoreApps) {
  desktop->application.deliver("deskloomplugin://configure");
  for (const auto& element : desktop->windows.made[0]->content.elements)
    EXPECT_FALSE(std::holds_alternative<Platform::Link>(element));
}

TEST_F(AppDelegateTest, LeavesTheHandlersOfTheOtherActionsAsTheRuntimeMakesThem) {
  EXPECT_DEATH(desktop->application.deliver("deskloomplugin://run/ID"), "Fatal error: ");
  EXPECT_DEATH(desktop->application.deliver("deskloomplugin://edit/ID"), "Fatal error: ");
}

// These end the delegate or the process, so each has a process of its own.
TEST(AppDelegateDeathTest, AConfigureActionAfterTheDelegateIsGoneDoesNothing) {
  EXPECT_EXIT(
      {
        Platform::Fake::FakeServices own;
        std::make_unique<AppDelegate>();
        App::shared().deskloomPlugin.actionController.onConfigure();
        std::exit(own.windows.made.empty() ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(AppDelegateDeathTest, StopsTheProcessIfTheAboutWindowHasNoWindow) {
  EXPECT_DEATH(
      {
        Platform::Fake::FakeServices own;
        own.windows.hasDisplay = false;
        const AppDelegate ownDelegate;
        own.application.deliver("deskloomplugin://configure");
      },
      "Fatal error: The About window could not be made.");
}

TEST(AppDelegateDeathTest, StopsTheProcessIfThereIsNoApplicationToTerminate) {
  EXPECT_DEATH(
      {
        Platform::Fake::FakeServices own;
        AppDelegate ownDelegate;
        own.services.application = nullptr;
        ownDelegate.windowWillClose({Platform::windowWillCloseNotification, nullptr});
      },
      "Fatal error: ");
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
