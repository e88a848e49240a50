#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

#include "Platform/Fake/FakeApplication.h"
#include "Platform/Fake/FakeClock.h"
#include "Platform/Queues.h"

namespace Platform::Fake {

/// Queues on which time passes when the test says so: work in the background runs on threads of its own, but sleeps
/// until `advance` has brought its time. The main thread is the one that makes this, and all else about it is for that
/// thread. What a test sees is the same each time.
class FakeQueues : public Queues {
 public:
  /// A length of time, in seconds.
  using Seconds = std::chrono::duration<double>;

  /// Moves this clock on as time passes, and begins no work once this application, if there is one, was asked to
  /// terminate; both must outlive the queues.
  explicit FakeQueues(FakeClock& clock, const FakeApplication* application = nullptr)
      : clock_(clock), application_(application) {}
  FakeQueues(const FakeQueues&) = delete;
  FakeQueues& operator=(const FakeQueues&) = delete;
  /// Wakes what sleeps and waits for its end; work for the main thread is dropped.
  ~FakeQueues() override;

  void runInBackground(Work work) override;
  void runOnMain(Work work) override;
  void sleep(Seconds seconds) override;
  [[nodiscard]] bool isMainThread() const override { return std::this_thread::get_id() == mainThread_; }

  /// Lets so many seconds pass, on the clock too: wakes what sleeps, each when its time has come, and runs what has
  /// come in for the main thread then, unless that is blocked. Returns once everything in the background sleeps or has
  /// ended.
  void advance(Seconds seconds);

  /// Runs what has come in for the main thread, and what comes in meanwhile.
  void runMainQueue();

  /// Whether the main thread is busy with something else, so that `advance` leaves alone what comes in for it.
  bool isMainBlocked = false;

 private:
  struct Sleeper {
    Seconds wakeTime;
    bool isAwake = false;
  };

  void settle();
  Sleeper* nextSleeper(Seconds until);
  void wake(Sleeper& sleeper);

  [[nodiscard]] bool isTerminating() const { return application_ != nullptr && application_->terminateRequests > 0; }

  FakeClock& clock_;
  const FakeApplication* application_;
  std::thread::id mainThread_ = std::this_thread::get_id();
  std::mutex mutex_;
  std::condition_variable changed_;
  /// The time since the beginning; the clock can be set, this cannot.
  Seconds uptime_{0};
  int running_ = 0;
  bool isEnding_ = false;
  std::deque<Sleeper*> sleepers_;
  std::deque<Work> main_;
  std::vector<std::thread> threads_;
};

}  // namespace Platform::Fake
