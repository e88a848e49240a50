#include "Linux/WorkerPool.h"

#include <utility>

namespace Linux {

namespace {

/// Work that sleeps occupies its thread, so there may be many; each costs little more than its stack's first pages.
constexpr std::size_t mostThreads = 256;

}  // namespace

WorkerPool::~WorkerPool() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
    waiting_.clear();
  }
  workCame_.notify_all();
  poolEnds_.notify_all();
  for (std::thread& thread : threads_)
    thread.join();
}

void WorkerPool::run(Work work) {
  const std::lock_guard lock(mutex_);
  if (isEnding_)
    return;
  waiting_.push_back(std::move(work));
  if (waiting_.size() > idle_ && threads_.size() < mostThreads)
    threads_.emplace_back([this] { serve(); });
  workCame_.notify_one();
}

void WorkerPool::sleep(std::chrono::duration<double> seconds) {
  std::unique_lock lock(mutex_);
  poolEnds_.wait_for(lock, seconds, [this] { return isEnding_; });
}

void WorkerPool::serve() {
  std::unique_lock lock(mutex_);
  while (true) {
    ++idle_;
    workCame_.wait(lock, [this] { return isEnding_ || !waiting_.empty(); });
    --idle_;
    if (isEnding_)
      return;
    Work work = std::move(waiting_.front());
    waiting_.pop_front();
    lock.unlock();
    work();
    work = nullptr;  // what it holds goes while nobody waits for the lock
    lock.lock();
  }
}

}  // namespace Linux
