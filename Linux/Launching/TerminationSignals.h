#pragma once

#include <functional>

#include <glib.h>

namespace Linux {

/// Takes SIGTERM and SIGHUP, by which a session ends, for a request to terminate: the first of them is told to the main
/// context, another one ends the process at once. A signal that the process was started to ignore stays ignored. There
/// can be one such object at a time. For the main thread alone.
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

}  // namespace Linux
