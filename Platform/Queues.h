#pragma once

#include <chrono>
#include <functional>

namespace Platform {

/// A moment of the wall clock (NSDate): seconds since 1970.
using Date = std::chrono::sys_time<std::chrono::duration<double>>;

/// The wall clock. The user may set it, so it can jump.
class Clock {
 public:
  virtual ~Clock() = default;

  /// The current date (NSDate.date). May be called on any thread.
  [[nodiscard]] virtual Date now() const = 0;
};

/// The queues that work is given to, for this thread or for others (dispatch queues). Work that has not begun when the
/// application is asked to terminate never does. Every operation may be called on any thread.
class Queues {
 public:
  /// A piece of work; it must not throw.
  using Work = std::function<void()>;

  virtual ~Queues() = default;

  /// Runs `work` in a background thread, and returns at once (the global queue).
  virtual void runInBackground(Work work) = 0;

  /// Runs `work` in the main thread, after the work that it was given before, and returns at once (the main queue). One
  /// at a time: work that waits for the user, in an alert, is not interrupted by the next.
  virtual void runOnMain(Work work) = 0;

  /// Blocks the calling thread, a background one, for this time (sleepForTimeInterval:), or until the application ends.
  virtual void sleep(std::chrono::duration<double> seconds) = 0;

  /// Whether the calling thread is the main one (NSThread.isMainThread).
  [[nodiscard]] virtual bool isMainThread() const = 0;
};

}  // namespace Platform
