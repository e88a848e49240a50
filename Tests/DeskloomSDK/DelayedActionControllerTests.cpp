#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/Configuration/DelayedActionController.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::DelayedActionController;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Seconds = std::chrono::duration<double>;

class DelayedActionControllerTest : public testing::Test {
 protected:
  DelayedActionController make(double interval = 1.0) { return {interval, std::nullopt, noteRun()}; }

  DelayedActionController::Action noteRun() {
    return [this] {
      EXPECT_TRUE(desktop.queues.isMainThread());
      runs.push_back((desktop.clock.date - start).count());
    };
  }

  void pass(double seconds) { desktop.queues.advance(Seconds(seconds)); }

  Platform::Fake::FakeServices desktop;
  Platform::Date start = desktop.clock.date;
  /// The times at which the action ran, in seconds since the start, by the clock.
  std::vector<double> runs;
};

TEST_F(DelayedActionControllerTest, CannotBeCopied) {
  EXPECT_FALSE(std::is_copy_constructible_v<DelayedActionController>);
  EXPECT_FALSE(std::is_copy_assignable_v<DelayedActionController>);
}

TEST_F(DelayedActionControllerTest, RunsTheActionOnceASecondAfterASingleRequest) {
  auto controller = make();
  controller.perform();
  pass(0.999);
  EXPECT_THAT(runs, IsEmpty());
  pass(10);
  EXPECT_THAT(runs, ElementsAre(1.0)) << "a second to the letter is enough";
}

TEST_F(DelayedActionControllerTest, NeverRunsTheActionInsideARequest) {
  auto controller = make();
  controller.perform();
  desktop.queues.runMainQueue();
  EXPECT_THAT(runs, IsEmpty());
}

TEST_F(DelayedActionControllerTest, RunsTheActionOnceForABurstASecondAfterItsEnd) {
  auto controller = make();
  for (int request = 0; request < 10; ++request) {
    controller.perform();
    pass(0.1);
  }
  EXPECT_THAT(runs, IsEmpty());
  pass(10);
  EXPECT_THAT(runs, ElementsAre(DoubleNear(1.9, 1e-6)));
}

TEST_F(DelayedActionControllerTest, WaitsAnewIfARequestComesHalfASecondLater) {
  auto controller = make();
  controller.perform();
  pass(0.5);
  controller.perform();
  pass(0.75);
  EXPECT_THAT(runs, IsEmpty()) << "the first check saw half a second";
  pass(0.25);
  EXPECT_THAT(runs, ElementsAre(1.5));
}

TEST_F(DelayedActionControllerTest, RunsTheActionAgainForTheNextBurst) {
  auto controller = make();
  controller.perform();
  pass(5);
  controller.perform();
  pass(5);
  EXPECT_THAT(runs, ElementsAre(1.0, 6.0));
}

TEST_F(DelayedActionControllerTest, KeepsTheTimeOfTheLatestRequest) {
  auto controller = make();
  EXPECT_EQ(controller.lastTime(), std::nullopt);
  controller.perform();
  pass(5);
  EXPECT_EQ(controller.lastTime(), start);
}

TEST_F(DelayedActionControllerTest, RunsTheActionForEachCheckIfTheMainThreadWasBlocked) {
  auto controller = make();
  desktop.queues.isMainBlocked = true;
  controller.perform();
  controller.perform();
  pass(0.5);
  controller.perform();
  pass(2);
  EXPECT_THAT(runs, IsEmpty());
  desktop.queues.runMainQueue();
  EXPECT_THAT(runs, ElementsAre(2.5, 2.5, 2.5));
}

TEST_F(DelayedActionControllerTest, DoesNotRunTheActionIfTheClockWasSetBack) {
  auto controller = make();
  controller.perform();
  pass(0.5);
  desktop.clock.date -= Seconds(3600);
  pass(10);
  EXPECT_THAT(runs, IsEmpty());
}

TEST_F(DelayedActionControllerTest, RunsTheActionEarlyIfTheClockWasSetForward) {
  auto controller = make();
  controller.perform();
  pass(0.5);
  controller.perform();
  desktop.clock.date += Seconds(3600);
  pass(0.5);
  EXPECT_THAT(runs, ElementsAre(3601.0)) << "half a second after the second request";
}

TEST_F(DelayedActionControllerTest, DoesNotRunTheActionIfTheTimeIsNotANumber) {
  auto controller = make();
  controller.perform();
  desktop.clock.date = Platform::Date(Seconds(std::numeric_limits<double>::quiet_NaN()));
  pass(10);
  EXPECT_THAT(runs, IsEmpty());
}

TEST_F(DelayedActionControllerTest, DoesNothingOnceItIsReleased) {
  auto watched = std::make_shared<int>();
  const std::weak_ptr<int> action = watched;
  std::optional<DelayedActionController> controller(std::in_place, 1.0, std::nullopt,
                                                    [this, watched = std::move(watched)] { runs.push_back(0); });
  controller->perform();  // begins to sleep
  pass(0.5);
  controller->perform();
  controller.reset();
  EXPECT_TRUE(action.expired());
  pass(10);
  EXPECT_THAT(runs, IsEmpty());
}

TEST_F(DelayedActionControllerTest, DoesNothingIfItIsReleasedWhileItsCheckWaitsForTheMainThread) {
  std::optional<DelayedActionController> controller(std::in_place, 1.0, std::nullopt, noteRun());
  desktop.queues.isMainBlocked = true;
  controller->perform();
  pass(2);
  controller.reset();
  desktop.queues.runMainQueue();
  EXPECT_THAT(runs, IsEmpty());
}

TEST_F(DelayedActionControllerTest, MayBeReleasedByItsAction) {
  std::optional<DelayedActionController> controller;
  controller.emplace(1.0, std::nullopt, [&] {
    controller.reset();
    runs.push_back(1);
  });
  controller->perform();
  pass(5);
  EXPECT_THAT(runs, ElementsAre(1));
}

TEST_F(DelayedActionControllerTest, TakesASecondWhateverItsInterval) {
  for (const double interval : {0.0, 0.2, 30.0, -1.0}) {
    runs.clear();
    start = desktop.clock.date;
    auto controller = make(interval);
    controller.perform();
    pass(100);
    EXPECT_THAT(runs, ElementsAre(1.0)) << interval;
    EXPECT_EQ(controller.interval(), interval);
  }
}

}  // namespace
