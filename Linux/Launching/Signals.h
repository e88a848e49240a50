#pragma once

#include <functional>

#include <glib.h>
#include <pthread.h>

namespace Linux {

/// Turns SIGTERM and SIGHUP, which end a session, into a request to terminate. The first one is reported to the main
/// context, and another one ends the process at once. A signal that the process was started to ignore stays ignored.
/// There can be one such object at a time. For the main thread alone.
class TerminationSignals {
 public:
  /// Calls `onSignal` from the main context after the first signal.
  explicit TerminationSignals(std::function<void()> onSignal);
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;
  /// From here on any such signal ends the process at once.
  ~TerminationSignals();

 private:
  static gboolean signalCame(gint descriptor, GIOCondition condition, gpointer self);

  std::function<void()> onSignal_;
  guint source_ = 0;
};

/// Lets one thread do something before this process aborts, whichever other thread aborts. There can be one such object
/// at a time.
class AbortNotice {
 public:
  /// How long the abort is put off at most.
  static constexpr int longestDelayInMilliseconds = 3000;

  /// Calls `beforeAbort` from `context`, which `servingThread` serves. An abort of that thread itself is not put off.
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
