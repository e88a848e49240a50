// The contract of every set of services, checked against the fake one and the Linux one alike.

#include <chrono>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Tests/Linux/FakeDriver.h"
#include "Tests/Linux/LinuxDriver.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

template <typename Driver>
class ServicesContractTest : public testing::Test {
 protected:
  ServicesContractTest() {
    for (const auto name :
         {Platform::applicationDidFinishLaunchingNotification, Platform::applicationWillTerminateNotification})
      driver.notifications().addObserver(name, &driver.application(), [this](const Platform::Notification& posted) {
        events.emplace_back(posted.name);
      });
  }

  /// Records the launch URLs that are delivered. "end" ends the application.
  void handleLaunchURLs() {
    driver.appleEvents().setEventHandler(
        Platform::internetEventClass, Platform::getURLEventID,
        [this](const Platform::AppleEvent& event, Platform::AppleEvent&) {
          events.push_back(event.paramDescriptor(Platform::keyDirectObject)->stringValue.value());
          if (events.back() == "end")
            driver.application().terminate();
        });
  }

  Driver driver;
  std::vector<std::string> events;
};

const std::string finishedLaunching{Platform::applicationDidFinishLaunchingNotification};
const std::string willTerminate{Platform::applicationWillTerminateNotification};

using Drivers = testing::Types<ServicesContract::FakeDriver, ServicesContract::LinuxDriver>;
TYPED_TEST_SUITE(ServicesContractTest, Drivers);

TYPED_TEST(ServicesContractTest, LaunchURLsAreDeliveredOneByOneUntouchedAndBeforeLaunchingFinishes) {
  this->handleLaunchURLs();
  this->driver.notifications().addObserver(
      Platform::applicationDidFinishLaunchingNotification, nullptr,
      [this](const Platform::Notification&) { this->driver.application().terminate(); });
  this->driver.launch({"x:a", "", " not \xFF a URL "});
  EXPECT_THAT(this->events, ElementsAre("x:a", "", " not \xFF a URL ", finishedLaunching, willTerminate));
}

TYPED_TEST(ServicesContractTest, ALaunchURLThatComesMeanwhileWaitsForTheOneBeingHandled) {
  this->driver.appleEvents().setEventHandler(
      Platform::internetEventClass, Platform::getURLEventID,
      [this](const Platform::AppleEvent& event, Platform::AppleEvent&) {
        const auto url = event.paramDescriptor(Platform::keyDirectObject)->stringValue.value();
        this->events.push_back("begin " + url);
        if (url == "first")
          this->driver.deliver("second");
        else
          this->driver.application().terminate();
        this->events.push_back("end " + url);
      });
  this->driver.launch({"first"});
  EXPECT_THAT(this->events, ElementsAre("begin first", "end first", "begin second", "end second", willTerminate));
}

TYPED_TEST(ServicesContractTest, AnApplicationThatALaunchURLEndsDoesNotFinishLaunching) {
  this->handleLaunchURLs();
  this->driver.launch({"end"});
  EXPECT_THAT(this->events, ElementsAre("end", willTerminate));
}

TYPED_TEST(ServicesContractTest, TerminatingIsIdempotent) {
  this->handleLaunchURLs();
  this->driver.appleEvents().setEventHandler(Platform::internetEventClass, Platform::getURLEventID,
                                             [this](const Platform::AppleEvent&, Platform::AppleEvent&) {
                                               this->driver.application().terminate();
                                               this->driver.application().terminate();
                                             });
  this->driver.launch({"x:a"});
  EXPECT_THAT(this->events, ElementsAre(willTerminate));
}

TYPED_TEST(ServicesContractTest, ATextResultIsYieldedAsItIs) {
  this->driver.expectText(" Café ");
  const auto outcome = this->driver.scripts().run("\" Café \"");
  ASSERT_TRUE(outcome && outcome->result);
  EXPECT_FALSE(outcome->error);
  EXPECT_EQ(outcome->result->stringValue, " Café ");
}

TYPED_TEST(ServicesContractTest, ANumberOrAListIsYieldedAsText) {
  this->driver.expectText("3");
  EXPECT_EQ(this->driver.scripts().run("1 + 2")->result->stringValue, "3");
  this->driver.expectText("1two");
  EXPECT_EQ(this->driver.scripts().run("{1, \"two\"}")->result->stringValue, "1two");
}

TYPED_TEST(ServicesContractTest, ASuccessWithoutTextIsNoFailure) {
  this->driver.expectNoText();
  for (const auto* source : {"missing value", "{name:\"a record\"}", ""}) {
    const auto outcome = this->driver.scripts().run(source);
    ASSERT_TRUE(outcome) << source;
    EXPECT_FALSE(outcome->error) << source;
    EXPECT_FALSE(outcome->result && outcome->result->stringValue) << source;
  }
}

TYPED_TEST(ServicesContractTest, AFailureIsToldByNumberAndMessage) {
  this->driver.expectFailure(-2701, "Can’t divide 1 by zero.");
  const auto outcome = this->driver.scripts().run("1 / 0");
  ASSERT_TRUE(outcome && outcome->error);
  EXPECT_EQ(outcome->error->number, -2701);
  EXPECT_FALSE(outcome->error->message.empty());
}

TYPED_TEST(ServicesContractTest, NoScriptIsMadeOfWhatIsNoText) {
  this->driver.expectRefusal();
  EXPECT_FALSE(this->driver.scripts().run("\xFF\xFE"));
}

TYPED_TEST(ServicesContractTest, AnUntranslatedTextShowsItself) {
  EXPECT_EQ(this->driver.strings().localized("Could not run script", "Error"), "Could not run script");
  EXPECT_EQ(this->driver.strings().localized("", ""), "");
}

TYPED_TEST(ServicesContractTest, ALaunchURLThatComesAfterTheRequestToTerminateIsKept) {
  this->handleLaunchURLs();
  this->driver.launch({"end", "x:a", "x:b"});
  EXPECT_THAT(this->events, ElementsAre("end", willTerminate));
  EXPECT_THAT(this->driver.undelivered(), ElementsAre("x:a", "x:b"));
}

TYPED_TEST(ServicesContractTest, WorkForTheMainThreadRunsInItsOrder) {
  for (const std::string name : {"first", "second", "third"})
    this->driver.queues().runOnMain([this, name] {
      EXPECT_TRUE(this->driver.queues().isMainThread());
      this->events.push_back(name);
    });
  EXPECT_THAT(this->events, IsEmpty());
  this->driver.runMainUntil([this] { return this->events.size() == 3; });
  EXPECT_THAT(this->events, ElementsAre("first", "second", "third"));
}

TYPED_TEST(ServicesContractTest, WorkInTheBackgroundRunsOnAnotherThread) {
  this->driver.queues().runInBackground([this] {
    EXPECT_FALSE(this->driver.queues().isMainThread());
    this->driver.queues().runOnMain([this] { this->events.emplace_back("done"); });
  });
  this->driver.runMainUntil([this] { return !this->events.empty(); });
}

TYPED_TEST(ServicesContractTest, NothingQueuedBeginsOnceTheApplicationIsToTerminate) {
  this->driver.queues().runOnMain([this] { this->driver.application().terminate(); });
  this->driver.queues().runOnMain([this] { this->events.emplace_back("queued before"); });
  this->driver.runMain();
  this->driver.queues().runOnMain([this] { this->events.emplace_back("queued after"); });
  this->driver.queues().runInBackground([] { ADD_FAILURE() << "it was given after the request to terminate"; });
  this->driver.runMain();
  std::erase(this->events, willTerminate);
  EXPECT_THAT(this->events, IsEmpty());
}

TYPED_TEST(ServicesContractTest, TheClockShowsTheTimeSince1970) {
  const Platform::Date lastCentury{std::chrono::seconds(946'684'799)};
  const auto now = this->driver.clock().now();
  EXPECT_GT(now, lastCentury);
  EXPECT_GE(this->driver.clock().now(), now);
}

TYPED_TEST(ServicesContractTest, URLsReachTheHandlerOfTheirSchemeAsTheyAreAndInOrder) {
  for (const auto* url : {"contract:a", "contract://B/%5b?c#d", "contract:a"})
    this->driver.workspace().open(Platform::URL::parse(url).value());
  EXPECT_THAT(this->driver.received(), ElementsAre("contract:a", "contract://B/%5b?c#d", "contract:a"));
}

TYPED_TEST(ServicesContractTest, AnAlertIsThereUntilTheUserDismissesIt) {
  bool wasShown = false;
  this->driver.showToUser({.messageText = "alert"}, [&] { wasShown = this->driver.showsAlerts(); });
  EXPECT_TRUE(wasShown);
}

TYPED_TEST(ServicesContractTest, NoAlertIsShownWhileTheApplicationTerminates) {
  this->driver.application().terminate();
  this->driver.alerts().runModal({.messageText = "alert"});
  EXPECT_FALSE(this->driver.showsAlerts());
}

/// Records that its window is about to close.
struct NotingDelegate : Platform::WindowDelegate {
  void windowWillClose(const Platform::Notification& notification) override { closed.push_back(notification.object); }
  std::vector<const void*> closed;
};

TYPED_TEST(ServicesContractTest, AWindowIsShownAndClosedAsOftenAsItIsAskedToBe) {
  NotingDelegate delegate;
  const auto window = this->driver.windows().makeWindow({.title = "Contract"});
  ASSERT_TRUE(window);
  EXPECT_EQ(window->delegate(), nullptr);
  window->setDelegate(&delegate);
  EXPECT_FALSE(this->driver.isOnScreen("Contract"));
  for (int time = 0; time < 2; ++time) {
    window->makeKeyAndOrderFront();
    this->driver.awaitOnScreen("Contract");
    window->close();
    this->driver.awaitNoWindow();
  }
  EXPECT_THAT(delegate.closed, ElementsAre(window.get(), window.get()));
}

TYPED_TEST(ServicesContractTest, AWindowsLevelReadsBack) {
  const auto window = this->driver.windows().makeWindow({.title = "Contract"});
  EXPECT_EQ(window->level(), Platform::normalWindowLevel);
  for (const int level : {4, 0, -1}) {
    window->setLevel(level);
    EXPECT_EQ(window->level(), level);
  }
}

TYPED_TEST(ServicesContractTest, TheBundleSaysWhereAndWhatItIs) {
  this->driver.describe("Version", "1.2");
  EXPECT_TRUE(this->driver.bundle().path().is_absolute());
  EXPECT_EQ(this->driver.bundle().identifier(), "com.example.Plugin");
  EXPECT_EQ(this->driver.bundle().information("Version"), "1.2");
  EXPECT_EQ(this->driver.bundle().information("version"), std::nullopt);
}

TYPED_TEST(ServicesContractTest, MessagesAreLoggedWholeAndInOrder) {
  const auto write = [this] {
    this->driver.log().write("error: Optional({\"%s\": %n})");
    this->driver.log().write("");
    this->driver.log().write("größer");
  };
  EXPECT_THAT(this->driver.logged(write), ElementsAre("error: Optional({\"%s\": %n})", "", "größer"));
}

TYPED_TEST(ServicesContractTest, ACheckForUpdatesIsBegun) {
  this->driver.updater().checkForUpdatesInBackground();
  EXPECT_EQ(this->driver.checksBegun(), 1);
}

}  // namespace
