#include <deque>

#include <gmock/gmock.h>

#include "Platform/Application.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Delivers the launches of a test, and records what happens.
class LaunchedApplicationTest : public testing::Test {
 protected:
  LaunchedApplicationTest() {
    appleEvents.setEventHandler(Platform::internetEventClass, Platform::getURLEventID,
                                [this](const Platform::AppleEvent& event, Platform::AppleEvent& /*replyEvent*/) {
                                  const std::string url =
                                      event.paramDescriptor(Platform::keyDirectObject)->stringValue.value();
                                  events.push_back("begin " + url);
                                  if (url == "nested")
                                    deliver();
                                  if (url == "end")
                                    application.terminate();
                                  events.push_back("end " + url);
                                });
    notifications.addObserver(Platform::applicationDidFinishLaunchingNotification, nullptr,
                              [this](const Platform::Notification&) { events.emplace_back("finished launching"); });
  }

  void deliver() {
    application.deliver([this]() -> std::optional<Platform::LaunchedApplication::Launch> {
      if (launches.empty())
        return std::nullopt;
      Platform::LaunchedApplication::Launch next{.url = launches.front(),
                                                 .finished = [this] { events.emplace_back("finished"); }};
      launches.pop_front();
      return next;
    });
  }

  Platform::AppleEventManager appleEvents;
  Platform::NotificationCenter notifications;
  Platform::LaunchedApplication application{appleEvents, notifications};
  std::deque<std::string> launches;
  std::vector<std::string> events;
};

TEST_F(LaunchedApplicationTest, FinishesALaunchBeforeTheNextBegins) {
  launches = {"a", "b"};
  deliver();
  EXPECT_THAT(events, ElementsAre("begin a", "end a", "finished", "begin b", "end b", "finished"));
}

TEST_F(LaunchedApplicationTest, DeliversNothingWhileALaunchIsBeingDelivered) {
  launches = {"nested", "b"};
  deliver();
  EXPECT_THAT(events, ElementsAre("begin nested", "end nested", "finished", "begin b", "end b", "finished"));
}

TEST_F(LaunchedApplicationTest, LeavesLaunchesWhereTheyAreOnceItIsAskedToTerminate) {
  launches = {"end", "b"};
  deliver();
  deliver();
  EXPECT_THAT(events, ElementsAre("begin end", "end end", "finished"));
  EXPECT_THAT(launches, ElementsAre("b"));
}

TEST_F(LaunchedApplicationTest, FinishesLaunchingUnlessItIsAskedToTerminate) {
  application.finishLaunching();
  EXPECT_THAT(events, ElementsAre("finished launching"));
  events.clear();
  application.terminate();
  application.finishLaunching();
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(LaunchedApplicationTest, MayBeLaunchedWithoutAURL) {
  bool isFinished = false;
  application.deliver([&]() -> std::optional<Platform::LaunchedApplication::Launch> {
    if (isFinished)
      return std::nullopt;
    return {{.url = std::nullopt, .finished = [&] { isFinished = true; }}};
  });
  EXPECT_TRUE(isFinished);
  EXPECT_THAT(events, IsEmpty());
}

}  // namespace
