#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace Linux {

/// Threads that run what they are given: none at first, one more whenever all are busy, up to a limit beyond which work
/// waits for its turn.
class WorkerPool {
 public:
  using Work = std::function<void()>;

  WorkerPool() = default;
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;
  /// Wakes those that sleep, drops the work that has not begun, and waits for the rest.
  ~WorkerPool();

  /// May be called on any thread.
  void run(Work work);

  /// Blocks the calling thread for so many seconds, or until the pool ends.
  void sleep(std::chrono::duration<double> seconds);

 private:
  void serve();

  std::mutex mutex_;
  std::condition_variable workCame_;
  std::condition_variable poolEnds_;
  std::deque<Work> waiting_;
  std::size_t idle_ = 0;
  bool isEnding_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace Linux
