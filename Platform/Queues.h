#pragma once

#include <chrono>
#include <functional>

namespace Platform {

/// The queues that work is handed to, on this thread or on others (dispatch queues). Work that has not begun when the
/// application is asked to terminate never does. Every operation may be called on any thread.
class Queues {
 public:
  /// A piece of work; it must not throw.
  using Work = std::function<void()>;

  virtual ~Queues() = default;

  /// Has a thread of the background run `work`, and returns at once (the global queue).
  virtual void runInBackground(Work work) = 0;

  /// Has the main thread run `work` when it comes to it, behind what it was given before, and returns at once (the main
  /// queue). One at a time: work that waits for the user, in an alert, is not interrupted by the next.
  virtual void runOnMain(Work work) = 0;

  /// Blocks the calling thread, one of the background, for so many seconds (sleepForTimeInterval:), or until the
  /// application ends.
  virtual void sleep(std::chrono::duration<double> seconds) = 0;

  /// Whether the calling thread is the main one (NSThread.isMainThread).
  [[nodiscard]] virtual bool isMainThread() const = 0;
};

}  // namespace Platform
