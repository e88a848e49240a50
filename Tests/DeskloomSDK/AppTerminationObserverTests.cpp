#include <optional>
#include <type_traits>

#include <gtest/gtest.h>

#include "DeskloomSDK/Configuration/AppTerminationObserver.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::AppTerminationObserver;

namespace {

class AppTerminationObserverTest : public testing::Test {
 protected:
  Platform::Fake::FakeServices desktop;
  int runs = 0;
};

TEST_F(AppTerminationObserverTest, CannotBeMadeWithoutACallback) {
  EXPECT_FALSE(std::is_default_constructible_v<AppTerminationObserver>);
}

TEST_F(AppTerminationObserverTest, CannotBeCopied) {
  EXPECT_FALSE(std::is_copy_constructible_v<AppTerminationObserver>);
  EXPECT_FALSE(std::is_copy_assignable_v<AppTerminationObserver>);
}

TEST_F(AppTerminationObserverTest, RunsItsCallbackOnceBeforeTheApplicationEnds) {
  const AppTerminationObserver observer([this] { ++runs; });
  EXPECT_EQ(runs, 0);
  desktop.application.terminate();
  desktop.application.terminate();
  EXPECT_EQ(runs, 1);
}

TEST_F(AppTerminationObserverTest, DoesNothingOnceItIsReleased) {
  {
    const AppTerminationObserver observer([this] { ++runs; });
  }
  desktop.application.terminate();
  EXPECT_EQ(runs, 0);
}

TEST_F(AppTerminationObserverTest, DoesNothingWithoutACallback) {
  AppTerminationObserver observer([this] { ++runs; });
  observer.onRun() = nullptr;
  desktop.application.terminate();
  EXPECT_EQ(runs, 0);
}

TEST_F(AppTerminationObserverTest, IgnoresWhatOthersThanTheApplicationPost) {
  const AppTerminationObserver observer([this] { ++runs; });
  const int other = 0;
  desktop.notifications.post({Platform::applicationWillTerminateNotification, &other});
  desktop.notifications.post({Platform::applicationWillTerminateNotification, nullptr});
  desktop.notifications.post({Platform::applicationDidFinishLaunchingNotification, &desktop.application});
  EXPECT_EQ(runs, 0);
}

TEST_F(AppTerminationObserverTest, MayBeReleasedByItsCallback) {
  std::optional<AppTerminationObserver> observer;
  observer.emplace([&, kept = std::make_shared<int>(1)] {
    observer.reset();
    runs += *kept;
    EXPECT_EQ(kept.use_count(), 1) << "only the callback that runs is left";
  });
  desktop.application.terminate();
  EXPECT_EQ(runs, 1);
}

TEST(AppTerminationObserver, NeedsAnApplication) {
  Platform::Fake::FakeServices desktop;
  desktop.services.application = nullptr;
  EXPECT_DEATH(AppTerminationObserver([] {}), "There is no shared application object");
}

}  // namespace
