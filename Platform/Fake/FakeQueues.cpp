#include "Platform/Fake/FakeQueues.h"

#include <algorithm>
#include <utility>

namespace Platform::Fake {

FakeQueues::~FakeQueues() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  changed_.notify_all();
  for (std::thread& thread : threads_)
    thread.join();
}

void FakeQueues::runInBackground(Work work) {
  if (isMainThread() && isTerminating())
    return;
  const std::lock_guard lock(mutex_);
  ++running_;
  threads_.emplace_back([this, work = std::move(work)]() mutable {
    work();
    work = nullptr;
    const std::lock_guard ending(mutex_);
    --running_;
    changed_.notify_all();
  });
}

void FakeQueues::runOnMain(Work work) {
  const std::lock_guard lock(mutex_);
  main_.push_back(std::move(work));
}

void FakeQueues::sleep(Seconds seconds) {
  std::unique_lock lock(mutex_);
  Sleeper sleeper{.wakeTime = uptime_ + seconds};
  sleepers_.push_back(&sleeper);
  --running_;
  changed_.notify_all();
  changed_.wait(lock, [&] { return sleeper.isAwake || isEnding_; });
  if (!sleeper.isAwake)
    wake(sleeper);
}

void FakeQueues::advance(Seconds seconds) {
  const Seconds end = uptime_ + seconds;
  settle();
  while (Sleeper* sleeper = nextSleeper(end)) {
    clock_.date += sleeper->wakeTime - uptime_;
    {
      const std::lock_guard lock(mutex_);
      uptime_ = sleeper->wakeTime;
      wake(*sleeper);
    }
    settle();
    if (!isMainBlocked)
      runMainQueue();
    settle();
  }
  clock_.date += end - uptime_;
  uptime_ = end;
  if (!isMainBlocked)
    runMainQueue();
}

void FakeQueues::runMainQueue() {
  std::unique_lock lock(mutex_);
  while (!main_.empty()) {
    const Work work = std::move(main_.front());
    main_.pop_front();
    lock.unlock();
    if (!isTerminating())
      work();
    lock.lock();
  }
}

/// Waits until all background work sleeps or has ended.
void FakeQueues::settle() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return running_ == 0; });
}

/// The first sleeper to wake, and of several at the same time the one that went to sleep first; null if none wakes by
/// then.
FakeQueues::Sleeper* FakeQueues::nextSleeper(Seconds until) {
  const std::lock_guard lock(mutex_);
  const auto next = std::ranges::min_element(sleepers_, {}, &Sleeper::wakeTime);
  return next == sleepers_.end() || (*next)->wakeTime > until ? nullptr : *next;
}

void FakeQueues::wake(Sleeper& sleeper) {
  std::erase(sleepers_, &sleeper);
  sleeper.isAwake = true;
  ++running_;
  changed_.notify_all();
}

}  // namespace Platform::Fake
