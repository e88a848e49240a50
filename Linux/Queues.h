#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include <glib.h>

#include "Linux/Application.h"
#include "Platform/Queues.h"

namespace Linux {

using Work = Platform::Queues::Work;

/// The system's clock.
class Clock : public Platform::Clock {
 public:
  [[nodiscard]] Platform::Date now() const override { return std::chrono::system_clock::now(); }
};

/// Runs work in the thread of GLib's main context, one piece at a time and in order.
class MainQueue {
 public:
  MainQueue() = default;
  MainQueue(const MainQueue&) = delete;
  MainQueue& operator=(const MainQueue&) = delete;
  /// Drops the work that has not begun.
  ~MainQueue();

  /// May be called on any thread.
  void run(Work work);

 private:
  static gboolean drain(gpointer queue);
  [[nodiscard]] Work next();

  std::mutex mutex_;
  std::deque<Work> waiting_;
  /// The main context's source while there is work. It is removed after the last work has returned, and GLib doesn't
  /// dispatch a source inside itself, so no work interrupts another.
  guint source_ = 0;
};

/// Runs work in threads. There are none at first and one more whenever all are busy, up to a limit; from then on work
/// waits.
class WorkerPool {
 public:
  WorkerPool() = default;
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;
  /// Wakes the threads that sleep, drops the work that has not begun, and waits for the rest.
  ~WorkerPool();

  /// May be called on any thread.
  void run(Work work);

  /// Blocks the calling thread for this time, or until the pool is destroyed.
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

/// Worker threads for the background and GLib's main context for the main thread, which is the thread that makes this.
class Queues : public Platform::Queues {
 public:
  /// Begins no work after this application was asked to terminate.
  explicit Queues(const Application& application) : application_(application) {}

  void runInBackground(Work work) override { workers_.run(unlessTerminating(std::move(work))); }
  void runOnMain(Work work) override { main_.run(unlessTerminating(std::move(work))); }
  void sleep(std::chrono::duration<double> seconds) override { workers_.sleep(seconds); }
  [[nodiscard]] bool isMainThread() const override { return std::this_thread::get_id() == mainThread_; }

 private:
  [[nodiscard]] Work unlessTerminating(Work work) const {
    return [this, work = std::move(work)] {
      if (!application_.isTerminating())
        work();
    };
  }

  const Application& application_;
  std::thread::id mainThread_ = std::this_thread::get_id();
  MainQueue main_;
  WorkerPool workers_;
};

}  // namespace Linux
