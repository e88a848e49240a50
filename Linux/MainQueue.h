#pragma once

#include <deque>
#include <functional>
#include <mutex>

#include <glib.h>

namespace Linux {

/// Work for the thread that runs GLib's main context, one at a time and in its order.
class MainQueue {
 public:
  using Work = std::function<void()>;

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
  /// The main context's source while there is work; it stays until the last has returned, and GLib does not dispatch a
  /// source inside itself.
  guint source_ = 0;
};

}  // namespace Linux
