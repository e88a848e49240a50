#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <glib.h>

#include "Linux/Launching/LaunchQueue.h"
#include "Platform/Log.h"

namespace Linux {

/// Starts processes of this application for launches that this process can't do itself. Each one runs the same
/// executable in a session of its own. Their number is limited, so that a thousand launches don't start a thousand
/// processes at once; the others wait. For the thread of its context alone.
class FreshProcesses {
 public:
  /// How many processes may be under way at a time, and how long one counts at most. A launch takes longer than that
  /// only if it waits for the user or for another program.
  static constexpr std::size_t mostAtOnce = 32;
  static constexpr std::chrono::milliseconds longestLaunch{2500};

  /// Logs a process that could not be started.
  FreshProcesses(GMainContext* context, Platform::Log& log);
  FreshProcesses(const FreshProcesses&) = delete;
  FreshProcesses& operator=(const FreshProcesses&) = delete;
  ~FreshProcesses();

  /// Starts a process that does these launches one after the other. Their callers are accepted when it has ended or
  /// after `longestLaunch`, and refused if it cannot be started or is killed.
  void start(std::vector<Launch> launches);

  /// Runs the context until all processes have been started and no caller waits any more.
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
