#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

#include "Platform/Fake/FakeApplication.h"
#include "Platform/Fake/FakeQueues.h"
#include "Platform/Queues.h"

namespace Platform::Fake {

/// A clock that shows what the test sets it to. `FakeQueues::advance` moves it on.
class FakeClock : public Clock {
 public:
  [[nodiscard]] Date now() const override { return date; }

  /// The date that it shows.
  Date date{std::chrono::seconds(1'000'000'000)};
};

/// Queues on which time passes when the test says so: background work runs on threads of its own, but sleeps until
/// `advance` reaches the time to wake. A test therefore runs the same each time. The main thread is the one that makes
/// this; the operations of this class's own are for that thread.
class FakeQueues : public Queues {
 public:
  /// A length of time, in seconds.
  using Seconds = std::chrono::duration<double>;

  /// Moves this clock on as time passes, and begins no work after this application, if there is one, was asked to
  /// terminate. Both must outlive the queues.
  explicit FakeQueues(FakeClock& clock, const FakeApplication* application = nullptr)
      : clock_(clock), application_(application) {}
  FakeQueues(const FakeQueues&) = delete;
  FakeQueues& operator=(const FakeQueues&) = delete;
  /// Wakes the work that sleeps and waits for its end. Drops the work for the main thread.
  ~FakeQueues() override;

  void runInBackground(Work work) override;
  void runOnMain(Work work) override;
  void sleep(Seconds seconds) override;
  [[nodiscard]] bool isMainThread() const override { return std::this_thread::get_id() == mainThread_; }

  /// Lets this time pass, on the clock too. Wakes each work at its time, and then runs the work for the main thread,
  /// unless that is blocked. Returns when all background work sleeps or has ended.
  void advance(Seconds seconds);

  /// Runs the work for the main thread, and the work that is added meanwhile.
  void runMainQueue();

  /// Whether the main thread is busy with something else, so that `advance` doesn't run the work for it.
  bool isMainBlocked = false;

 private:
  struct Sleeper {
    Seconds wakeTime;
    bool isAwake = false;
  };

  void settle();
  Sleeper* nextSleeper(Seconds until);
  void wake(Sleeper& sleeper);

  [[nodiscard]] bool isTerminating() const { return application_ != nullptr && application_->isTerminating(); }

  FakeClock& clock_;
  const FakeApplication* application_;
  std::thread::id mainThread_ = std::this_thread::get_id();
  std::mutex mutex_;
  std::condition_variable changed_;
  /// The time since the beginning. Unlike the clock, it cannot be set.
  Seconds uptime_{0};
  int running_ = 0;
  bool isEnding_ = false;
  std::deque<Sleeper*> sleepers_;
  std::deque<Work> main_;
  std::vector<std::thread> threads_;
};

}  // namespace Platform::Fake
