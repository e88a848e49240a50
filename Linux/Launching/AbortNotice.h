#pragma once

#include <functional>

#include <glib.h>
#include <pthread.h>

namespace Linux {

/// Lets the thread of a context do something before this process aborts, wherever it does so. There can be one such
/// object at a time.
class AbortNotice {
 public:
  /// How long the abort is put off at most.
  static constexpr int longestDelayInMilliseconds = 3000;

  /// Calls `beforeAbort` from `context`, which `servingThread` serves; an abort of that thread itself is not put off.
  AbortNotice(GMainContext* context, pthread_t servingThread, std::function<void()> beforeAbort);
  AbortNotice(const AbortNotice&) = delete;
  AbortNotice& operator=(const AbortNotice&) = delete;
  ~AbortNotice();

 private:
  static gboolean abortBegan(gint descriptor, GIOCondition condition, gpointer self);

  std::function<void()> beforeAbort_;
  GSource* source_ = nullptr;
};

}  // namespace Linux
