#include <atomic>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Platform/Fake/FakeQueues.h"

using Platform::Fake::FakeClock;
using Platform::Fake::FakeQueues;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using namespace std::chrono_literals;

class FakeQueuesTest : public testing::Test {
 protected:
  /// Runs background work that sleeps for this time and then has the main thread record it.
  void noteAfter(double seconds, const std::string& what) {
    queues.runInBackground([this, seconds, what] {
      queues.sleep(FakeQueues::Seconds(seconds));
      queues.runOnMain([this, what] { noted.push_back(what); });
    });
  }

  FakeClock clock;
  FakeQueues queues{clock};
  std::vector<std::string> noted;
};

TEST_F(FakeQueuesTest, WakeWhatSleepsInTheOrderOfTheTimes) {
  noteAfter(3, "third");
  noteAfter(1, "first");
  noteAfter(2, "second");
  queues.advance(0.5s);
  EXPECT_THAT(noted, IsEmpty());
  queues.advance(1.5s);
  EXPECT_THAT(noted, ElementsAre("first", "second"));
  queues.advance(10s);
  EXPECT_THAT(noted, ElementsAre("first", "second", "third"));
}

TEST_F(FakeQueuesTest, MoveTheClockOn) {
  const auto start = clock.now();
  std::vector<double> seen;
  queues.runInBackground([&] {
    queues.sleep(0.25s);
    queues.runOnMain([&] { seen.push_back((clock.now() - start).count()); });
  });
  queues.advance(1s);
  EXPECT_THAT(seen, ElementsAre(0.25));
  EXPECT_EQ((clock.now() - start).count(), 1.0);
}

TEST_F(FakeQueuesTest, LeaveABlockedMainThreadAlone) {
  queues.isMainBlocked = true;
  noteAfter(1, "work");
  queues.advance(5s);
  EXPECT_THAT(noted, IsEmpty());
  queues.runMainQueue();
  EXPECT_THAT(noted, ElementsAre("work"));
}

TEST_F(FakeQueuesTest, RunWhatMainWorkBringsForTheMainThread) {
  queues.runOnMain([this] {
    noted.emplace_back("outer");
    queues.runOnMain([this] { noted.emplace_back("inner"); });
  });
  queues.runMainQueue();
  EXPECT_THAT(noted, ElementsAre("outer", "inner"));
}

TEST_F(FakeQueuesTest, KnowTheMainThread) {
  std::atomic<bool> isMain = true;
  queues.runInBackground([&] { isMain = queues.isMainThread(); });
  queues.advance(0s);
  EXPECT_FALSE(isMain);
  EXPECT_TRUE(queues.isMainThread());
}

TEST_F(FakeQueuesTest, MayEndWhileWorkSleeps) {
  noteAfter(1, "never");
}

}  // namespace
