#include "Linux/Queues.h"

namespace Linux {

namespace {

/// Work that sleeps occupies its thread, so there may be many. A thread costs little more than the first pages of its
/// stack.
constexpr std::size_t mostThreads = 256;

}  // namespace

MainQueue::~MainQueue() {
  const std::lock_guard lock(mutex_);
  if (source_ != 0)
    g_source_remove(source_);
}

void MainQueue::run(Work work) {
  const std::lock_guard lock(mutex_);
  waiting_.push_back(std::move(work));
  if (source_ == 0)
    source_ = g_idle_add_full(G_PRIORITY_DEFAULT, &MainQueue::drain, this, nullptr);
}

gboolean MainQueue::drain(gpointer queue) {
  auto* self = static_cast<MainQueue*>(queue);
  while (const Work work = self->next())
    work();
  return G_SOURCE_REMOVE;
}

/// Takes the first work. If there is none, yields null, and the source is removed.
Work MainQueue::next() {
  const std::lock_guard lock(mutex_);
  if (waiting_.empty()) {
    source_ = 0;
    return nullptr;
  }
  Work work = std::move(waiting_.front());
  waiting_.pop_front();
  return work;
}

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
    work = nullptr;  // release what it holds while the lock is free
    lock.lock();
  }
}

}  // namespace Linux
