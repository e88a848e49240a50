#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <glib.h>

#include "Linux/Launching/Launch.h"
#include "Platform/Log.h"

namespace Linux {

/// Processes of this application that do launches which this one can't: each is the running executable anew, in a
/// session of its own. Some at a time, so that a thousand launches don't make a thousand processes at once; the others
/// wait. For the thread of its context alone.
class FreshProcesses {
 public:
  /// How many launches may be under way at a time, and for how long one counts at most: longer than any launch takes
  /// that doesn't wait for somebody.
  static constexpr std::size_t mostAtOnce = 32;
  static constexpr std::chrono::milliseconds longestLaunch{2500};

  /// Logs what could not be started.
  FreshProcesses(GMainContext* context, Platform::Log& log);
  FreshProcesses(const FreshProcesses&) = delete;
  FreshProcesses& operator=(const FreshProcesses&) = delete;
  ~FreshProcesses();

  /// Has a process of its own do these launches, one after the other. Their callers are let go when it has ended, or
  /// after `longestLaunch`, and refused if it cannot be started or is killed.
  void start(std::vector<Launch> launches);

  /// Runs the context until all have been started and no caller waits any more.
  void finish();

 private:
  class Process;

  void startWaiting();
  void startOne(std::vector<Launch> launches);
  void remove(const Process* process);

  GMainContext* context_;
  Platform::Log& log_;
  std::deque<std::vector<Launch>> waiting_;
  std::vector<std::unique_ptr<Process>> underWay_;
};

}  // namespace Linux
