// What every set of services promises, held against the fake one and the Linux one alike.

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <unistd.h>

#include "Platform/Fake/FakeServices.h"
#include "Platform/Linux/LinuxApplication.h"
#include "Platform/Linux/LinuxBundle.h"
#include "Platform/Linux/LinuxScriptEngine.h"
#include "Platform/Linux/LinuxStrings.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A fake desktop that behaves as the tests expect of a real one.
class FakeDriver {
 public:
  Platform::AppleEventManager& appleEvents() { return desktop_.appleEvents; }
  Platform::NotificationCenter& notifications() { return desktop_.notifications; }
  Platform::Application& application() { return desktop_.application; }
  Platform::Strings& strings() { return desktop_.strings; }
  Platform::ScriptEngine& scripts() { return desktop_.scripts; }

  void deliver(std::string launchURL) { desktop_.application.deliver(std::move(launchURL)); }

  /// Launches the application with these launch URLs and sees it to its end, where they end it.
  void launch(const std::vector<std::string>& launchURLs) {
    for (const std::string& url : launchURLs)
      desktop_.application.deliver(url);
    desktop_.application.finishLaunching();
  }

  void expectText(std::string text) { desktop_.scripts.answerText(std::move(text)); }
  void expectNoText() { desktop_.scripts.answerWithoutText(); }
  void expectFailure(int number, std::string message) { desktop_.scripts.fail(number, std::move(message)); }
  void expectRefusal() { desktop_.scripts.refuse(); }

 private:
  Platform::Fake::FakeServices desktop_;
};

class LinuxDriver {
 public:
  Platform::AppleEventManager& appleEvents() { return appleEvents_; }
  Platform::NotificationCenter& notifications() { return notifications_; }
  Platform::Application& application() { return application_; }
  Platform::Strings& strings() { return strings_; }
  Platform::ScriptEngine& scripts() { return scripts_; }

  void deliver(std::string launchURL) { application_.deliver(std::move(launchURL)); }

  void launch(const std::vector<std::string>& launchURLs) {
    for (const std::string& url : launchURLs)
      application_.deliver(url);
    application_.run();
    application_.postWillTerminate();
    application_.postWillTerminate();
  }

  // The real engine is told nothing: it runs the source.
  void expectText(const std::string&) {}
  void expectNoText() {}
  void expectFailure(int, const std::string&) {}
  void expectRefusal() {}

 private:
  Platform::AppleEventManager appleEvents_;
  Platform::NotificationCenter notifications_;
  Platform::Linux::LinuxApplication application_{appleEvents_, notifications_};
  Platform::Linux::LinuxBundle bundle_{"/no such bundle"};
  Platform::Linux::LinuxStrings strings_{bundle_};
  Platform::Linux::LinuxScriptEngine scripts_;
};

template <typename Driver>
class ServicesContract : public testing::Test {
 protected:
  ServicesContract() {
    for (const auto name :
         {Platform::applicationDidFinishLaunchingNotification, Platform::applicationWillTerminateNotification})
      driver.notifications().addObserver(name, &driver.application(), [this](const Platform::Notification& posted) {
        events.emplace_back(posted.name);
      });
  }

  /// Notes the launch URLs that are delivered; "end" ends the application.
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

using Drivers = testing::Types<FakeDriver, LinuxDriver>;
TYPED_TEST_SUITE(ServicesContract, Drivers);

TYPED_TEST(ServicesContract, LaunchURLsAreDeliveredOneByOneUntouchedAndBeforeLaunchingFinishes) {
  this->handleLaunchURLs();
  this->driver.notifications().addObserver(
      Platform::applicationDidFinishLaunchingNotification, nullptr,
      [this](const Platform::Notification&) { this->driver.application().terminate(); });
  this->driver.launch({"x:a", "", " not \xFF a URL "});
  EXPECT_THAT(this->events, ElementsAre("x:a", "", " not \xFF a URL ", finishedLaunching, willTerminate));
}

TYPED_TEST(ServicesContract, ALaunchURLThatComesMeanwhileWaitsForTheOneBeingHandled) {
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

TYPED_TEST(ServicesContract, AnApplicationThatALaunchURLEndsDoesNotFinishLaunching) {
  this->handleLaunchURLs();
  this->driver.launch({"end"});
  EXPECT_THAT(this->events, ElementsAre("end", willTerminate));
}

TYPED_TEST(ServicesContract, TerminatingIsIdempotent) {
  this->handleLaunchURLs();
  this->driver.appleEvents().setEventHandler(Platform::internetEventClass, Platform::getURLEventID,
                                             [this](const Platform::AppleEvent&, Platform::AppleEvent&) {
                                               this->driver.application().terminate();
                                               this->driver.application().terminate();
                                             });
  this->driver.launch({"x:a"});
  EXPECT_THAT(this->events, ElementsAre(willTerminate));
}

TYPED_TEST(ServicesContract, ATextResultIsYieldedAsItIs) {
  this->driver.expectText(" Café ");
  const auto outcome = this->driver.scripts().run("\" Café \"");
  ASSERT_TRUE(outcome && outcome->result);
  EXPECT_FALSE(outcome->error);
  EXPECT_EQ(outcome->result->stringValue, " Café ");
}

TYPED_TEST(ServicesContract, ANumberOrAListIsYieldedAsText) {
  this->driver.expectText("3");
  EXPECT_EQ(this->driver.scripts().run("1 + 2")->result->stringValue, "3");
  this->driver.expectText("1two");
  EXPECT_EQ(this->driver.scripts().run("{1, \"two\"}")->result->stringValue, "1two");
}

TYPED_TEST(ServicesContract, ASuccessWithoutTextIsNoFailure) {
  this->driver.expectNoText();
  for (const auto* source : {"missing value", "{name:\"a record\"}", ""}) {
    const auto outcome = this->driver.scripts().run(source);
    ASSERT_TRUE(outcome) << source;
    EXPECT_FALSE(outcome->error) << source;
    EXPECT_FALSE(outcome->result && outcome->result->stringValue) << source;
  }
}

TYPED_TEST(ServicesContract, AFailureIsToldByNumberAndMessage) {
  this->driver.expectFailure(-2701, "Can’t divide 1 by zero.");
  const auto outcome = this->driver.scripts().run("1 / 0");
  ASSERT_TRUE(outcome && outcome->error);
  EXPECT_EQ(outcome->error->number, -2701);
  EXPECT_FALSE(outcome->error->message.empty());
}

TYPED_TEST(ServicesContract, NoScriptIsMadeOfWhatIsNoText) {
  this->driver.expectRefusal();
  EXPECT_FALSE(this->driver.scripts().run("\xFF\xFE"));
}

TYPED_TEST(ServicesContract, AnUntranslatedTextShowsItself) {
  EXPECT_EQ(this->driver.strings().localized("Could not run script", "Error"), "Could not run script");
  EXPECT_EQ(this->driver.strings().localized("", ""), "");
}

}  // namespace
