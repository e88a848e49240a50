#include <gmock/gmock.h>

#include "Platform/NotificationCenter.h"

using Platform::Notification;
using Platform::NotificationCenter;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class NotificationCenterTest : public testing::Test {
 protected:
  NotificationCenter::Observer noting(int number) {
    return [this, number](const Notification&) { calls.push_back(number); };
  }

  NotificationCenter center;
  std::vector<int> calls;
  int sender = 0;
  int otherSender = 0;
};

TEST_F(NotificationCenterTest, CallsTheObserversOfANameInTheirOrder) {
  center.addObserver("a", nullptr, noting(1));
  center.addObserver("b", nullptr, noting(2));
  center.addObserver("a", nullptr, noting(3));
  center.post({"a", &sender});
  EXPECT_THAT(calls, ElementsAre(1, 3));
}

TEST_F(NotificationCenterTest, HandsTheNotificationOver) {
  const void* seen = nullptr;
  center.addObserver("a", nullptr, [&](const Notification& notification) { seen = notification.object; });
  center.post({"a", &sender});
  EXPECT_EQ(seen, &sender);
}

TEST_F(NotificationCenterTest, PassesOverPostersThatAnObserverDoesNotAskFor) {
  center.addObserver("a", &sender, noting(1));
  center.post({"a", &otherSender});
  center.post({"a", nullptr});
  EXPECT_THAT(calls, IsEmpty());
  center.post({"a", &sender});
  EXPECT_THAT(calls, ElementsAre(1));
}

TEST_F(NotificationCenterTest, EndsAnObservationByItsToken) {
  const auto token = center.addObserver("a", nullptr, noting(1));
  center.addObserver("a", nullptr, noting(2));
  center.removeObserver(token);
  center.removeObserver(token);
  center.post({"a", &sender});
  EXPECT_THAT(calls, ElementsAre(2));
}

TEST_F(NotificationCenterTest, LetsAnObserverEndItsOwnObservation) {
  NotificationCenter::Token token{};
  token = center.addObserver("a", nullptr, [&](const Notification&) {
    center.removeObserver(token);
    calls.push_back(1);
  });
  center.addObserver("a", nullptr, noting(2));
  center.post({"a", &sender});
  center.post({"a", &sender});
  EXPECT_THAT(calls, ElementsAre(1, 2, 2));
}

TEST_F(NotificationCenterTest, DoesNotCallAnObserverThatAnEarlierOneRemoved) {
  NotificationCenter::Token second{};
  center.addObserver("a", nullptr, [&](const Notification&) { center.removeObserver(second); });
  second = center.addObserver("a", nullptr, noting(2));
  center.post({"a", &sender});
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(NotificationCenterTest, DoesNotCallYetAnObserverThatIsAddedMeanwhile) {
  center.addObserver("a", nullptr, [&](const Notification&) { center.addObserver("a", nullptr, noting(2)); });
  center.post({"a", &sender});
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(NotificationCenterTest, SurvivesANotificationInsideANotification) {
  center.addObserver("a", nullptr, [&](const Notification&) { center.post({"b", &sender}); });
  center.addObserver("b", nullptr, noting(2));
  center.post({"a", &sender});
  EXPECT_THAT(calls, ElementsAre(2));
}

}  // namespace
