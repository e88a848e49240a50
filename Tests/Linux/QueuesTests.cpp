#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Linux/Queues.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using namespace std::chrono_literals;

class QueuesTest : public testing::Test {
 protected:
  /// Runs the main context until `condition` holds.
  template <typename Condition>
  static void runMainUntil(Condition condition) {
    while (!condition())
      g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  }

  /// Runs what the main context has to do now.
  static void runMain() {
    while (g_main_context_iteration(nullptr, /*may_block=*/FALSE) != FALSE) {
    }
  }

  Platform::AppleEventManager appleEvents;
  Platform::NotificationCenter notifications;
  Linux::Application application{appleEvents, notifications};
  Linux::Queues queues{application};
  std::vector<std::string> noted;
};

TEST_F(QueuesTest, RunWorkOnTheMainThreadInItsOrder) {
  std::thread([this] {
    for (const std::string what : {"first", "second", "third"})
      queues.runOnMain([this, what] {
        EXPECT_TRUE(queues.isMainThread());
        noted.push_back(what);
      });
  }).join();
  EXPECT_THAT(noted, IsEmpty());
  runMainUntil([this] { return noted.size() == 3; });
  EXPECT_THAT(noted, ElementsAre("first", "second", "third"));
}

TEST_F(QueuesTest, DoNotInterruptWorkThatRunsTheMainContext) {
  queues.runOnMain([this] {
    noted.emplace_back("begin");
    queues.runOnMain([this] { noted.emplace_back("next"); });
    runMain();
    noted.emplace_back("end");
  });
  runMainUntil([this] { return noted.size() == 3; });
  EXPECT_THAT(noted, ElementsAre("begin", "end", "next"));
}

TEST_F(QueuesTest, RunBackgroundWorkSideBySide) {
  // Each waits for the other, so a single thread would never finish.
  std::promise<void> first;
  std::promise<void> second;
  std::atomic<int> done = 0;
  queues.runInBackground([&] {
    EXPECT_FALSE(queues.isMainThread());
    first.set_value();
    second.get_future().wait();
    ++done;
    queues.runOnMain([] {});
  });
  queues.runInBackground([&] {
    second.set_value();
    first.get_future().wait();
    ++done;
    queues.runOnMain([] {});
  });
  runMainUntil([&] { return done == 2; });
}

TEST_F(QueuesTest, ComeToAllWorkHoweverMuchThereIs) {
  constexpr int all = 2000;
  std::atomic<int> done = 0;
  for (int work = 0; work < all; ++work)
    queues.runInBackground([&] {
      if (++done == all)
        queues.runOnMain([] {});
    });
  runMainUntil([&] { return done == all; });
}

TEST_F(QueuesTest, SleepNoShorterThanAsked) {
  using Clock = std::chrono::steady_clock;
  std::optional<Clock::duration> slept;
  queues.runInBackground([&] {
    const auto start = Clock::now();
    queues.sleep(20ms);
    queues.runOnMain([&slept, start, end = Clock::now()] { slept = end - start; });
  });
  runMainUntil([&] { return slept.has_value(); });
  EXPECT_GE(*slept, 20ms);
}

TEST_F(QueuesTest, BeginNothingOnceTheApplicationIsToTerminate) {
  queues.runOnMain([this] {
    noted.emplace_back("begun");
    application.terminate();
    runMain();
    noted.emplace_back("ended");
  });
  queues.runOnMain([this] { noted.emplace_back("queued before"); });
  runMainUntil([this] { return noted.size() == 2; });
  queues.runOnMain([this] { noted.emplace_back("queued after"); });
  std::promise<void> released;
  queues.runInBackground([this, release = std::shared_ptr<void>(nullptr, [&](void*) { released.set_value(); })] {
    ADD_FAILURE() << "it was given after the application was asked to terminate";
  });
  released.get_future().wait();
  runMain();
  EXPECT_THAT(noted, ElementsAre("begun", "ended"));
}

TEST_F(QueuesTest, EndWithoutWaitingForWhatSleeps) {
  std::promise<void> sleeps;
  auto held = std::make_shared<int>();
  const std::weak_ptr<int> released = held;
  {
    Linux::Queues ended{application};
    ended.runInBackground([&ended, &sleeps] {
      sleeps.set_value();
      ended.sleep(24h);
      ended.runOnMain([] { ADD_FAILURE() << "there is no main thread any more"; });
    });
    sleeps.get_future().wait();
    ended.runOnMain([held = std::move(held)] { ADD_FAILURE() << "it was in line when the queues ended"; });
  }
  EXPECT_TRUE(released.expired());
  while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
  }
}

}  // namespace
