#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Linux/Launching/LaunchQueue.h"

using Linux::Launch;
using Linux::LaunchCaller;
using Linux::LaunchQueue;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using namespace std::chrono_literals;

/// Records the first answer.
class NotingCaller : public LaunchCaller {
 public:
  explicit NotingCaller(std::string& heard) : heard_(heard) {}
  ~NotingCaller() override { NotingCaller::accept(); }

  void accept() override { note("accepted"); }
  void refuse(const std::string& reason) override { note("refused: " + reason); }
  [[nodiscard]] bool helpsItself() const override { return false; }

 private:
  void note(const std::string& word) {
    if (heard_.empty())
      heard_ = word;
  }
  std::string& heard_;
};

class LaunchQueueTest : public testing::Test {
 protected:
  void add(const std::string& url, std::optional<LaunchQueue::TimePoint> beginBy = {},
           std::shared_ptr<LaunchCaller> caller = nullptr) {
    queue.add({.url = url, .beginBy = beginBy, .caller = std::move(caller)});
  }

  std::string begun(LaunchQueue::TimePoint time) {
    const auto launch = queue.begin(time);
    return launch ? launch->url.value_or("no URL") : "nothing";
  }

  static std::vector<std::string> urls(const std::vector<Launch>& launches) {
    std::vector<std::string> all;
    for (const Launch& launch : launches)
      all.push_back(launch.url.value_or("no URL"));
    return all;
  }

  const LaunchQueue::TimePoint now{1h};
  LaunchQueue queue;
};

TEST_F(LaunchQueueTest, GivesOneAtATimeInTheirOrder) {
  add("a");
  add("b");
  EXPECT_EQ(begun(now), "a");
  EXPECT_EQ(begun(now), "nothing") << "one is in hand";
  queue.finish();
  EXPECT_EQ(begun(now), "b");
  queue.finish();
  EXPECT_EQ(begun(now), "nothing");
}

TEST_F(LaunchQueueTest, GivesNothingWhoseTimeIsOver) {
  add("late", now);
  add("soon", now + 1ms);
  EXPECT_EQ(begun(now), "soon");
  queue.finish();
  EXPECT_EQ(begun(now), "nothing");
  EXPECT_THAT(urls(queue.takeOverdue(now)), ElementsAre("late"));
  EXPECT_THAT(urls(queue.takeAll()), IsEmpty());
}

TEST_F(LaunchQueueTest, HandsOutWhatIsOverdueAndKeepsTheRest) {
  add("a", now + 1ms);
  add("b", now);
  add("c");
  add("d", now - 1ms);
  EXPECT_THAT(urls(queue.takeOverdue(now)), testing::UnorderedElementsAre("b", "d"));
  EXPECT_THAT(urls(queue.takeOverdue(now)), IsEmpty());
  EXPECT_THAT(urls(queue.takeAll()), ElementsAre("a", "c"));
}

TEST_F(LaunchQueueTest, MakesNoLaunchWaitForAMainThreadThatIsStuck) {
  add("a");
  static_cast<void>(queue.begin(now));
  add("b", now + 1s);
  EXPECT_THAT(urls(queue.takeOverdue(now + 1s)), ElementsAre("b"));
  queue.add({.url = "c", .beginBy = now + 2s}, now + 1s);
  queue.add({.url = "has time"}, now + 1s);
  EXPECT_EQ(begun(now + 1s), "nothing");
  EXPECT_THAT(urls(queue.takeOverdue(now + 1s)), ElementsAre("c"));
  queue.finish();
  EXPECT_EQ(begun(now + 1s), "has time") << "it is back";
  queue.add({.url = "d", .beginBy = now + 2s}, now + 1s);
  EXPECT_THAT(urls(queue.takeOverdue(now + 1s)), IsEmpty());
}

TEST_F(LaunchQueueTest, HandsOutAllThatWaitsAndNotWhatIsInHand) {
  add("a");
  add("b");
  add("c");
  EXPECT_EQ(begun(now), "a");
  EXPECT_THAT(urls(queue.takeAll()), ElementsAre("b", "c"));
}

TEST_F(LaunchQueueTest, LetsACallerGoWhenItsLaunchIsDone) {
  std::string heard;
  add("a", {}, std::make_shared<NotingCaller>(heard));
  static_cast<void>(queue.begin(now));
  EXPECT_EQ(heard, "");
  queue.finish();
  EXPECT_EQ(heard, "accepted");
}

TEST_F(LaunchQueueTest, LetsACallerGoWhenTheLastOfItsLaunchesIsDone) {
  std::string heard;
  {
    const auto caller = std::make_shared<NotingCaller>(heard);
    add("a", {}, caller);
    add("b", {}, caller);
  }
  static_cast<void>(queue.begin(now));
  queue.finish();
  EXPECT_EQ(heard, "");
  static_cast<void>(queue.begin(now));
  queue.finish();
  EXPECT_EQ(heard, "accepted");
}

TEST_F(LaunchQueueTest, TellsACallerThatWouldOtherwiseThinkItsLaunchLost) {
  std::string heard;
  add("a", {}, std::make_shared<NotingCaller>(heard));
  queue.acceptIfSlow(now + 1h);
  EXPECT_EQ(heard, "") << "it has not begun";
  static_cast<void>(queue.begin(now));
  queue.acceptIfSlow(now + LaunchQueue::longestSilence - 1ms);
  EXPECT_EQ(heard, "");
  queue.acceptIfSlow(now + LaunchQueue::longestSilence);
  EXPECT_EQ(heard, "accepted");
}

TEST_F(LaunchQueueTest, KnowsWhenThereIsSomethingToDoNext) {
  EXPECT_EQ(queue.nextDeadline(), std::nullopt);
  add("no hurry");
  EXPECT_EQ(queue.nextDeadline(), std::nullopt);
  std::string heard;
  add("b", now + 2s, std::make_shared<NotingCaller>(heard));
  add("c", now + 1s);
  EXPECT_EQ(queue.nextDeadline(), now + 1s);
  static_cast<void>(queue.takeOverdue(now + 1s));
  EXPECT_EQ(queue.nextDeadline(), now + 2s);
  static_cast<void>(queue.begin(now));
  EXPECT_EQ(queue.nextDeadline(), now + 2s) << "nobody waits for the one in hand";
  queue.finish();
  static_cast<void>(queue.begin(now));
  EXPECT_EQ(queue.nextDeadline(), now + LaunchQueue::longestSilence);
  queue.acceptIfSlow(now + LaunchQueue::longestSilence);
  EXPECT_EQ(queue.nextDeadline(), std::nullopt);
}

}  // namespace
