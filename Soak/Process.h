#pragma once

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/System/FileDescriptor.h"

namespace Soak {

/// How long processes get to end when there is nothing left for them to do.
inline constexpr std::chrono::seconds timeToEnd{30};

/// Any process, to wait for its end.
class ProcessEnd {
 public:
  explicit ProcessEnd(pid_t process);

  /// Whether the process ends within `time`, or has ended.
  [[nodiscard]] bool isWithin(std::chrono::milliseconds time) const;

 private:
  DesktopSupport::FileDescriptor descriptor_;
};

/// A program that this one has started. Killed at the end of its scope if it still runs.
class Process {
 public:
  /// How it has ended: what `waitpid` tells, and its peak memory in bytes.
  struct End {
    int status;
    long peakMemory;
  };

  /// The file that the standard error of all of them is appended to.
  static std::filesystem::path log();

  /// Starts `arguments[0]`, without input and output. Throws if that fails.
  explicit Process(std::vector<std::string> arguments);
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process();

  [[nodiscard]] pid_t pid() const { return pid_; }
  [[nodiscard]] bool endsWithin(std::chrono::milliseconds time) const { return ProcessEnd(pid_).isWithin(time); }
  void send(int signal) const { kill(pid_, signal); }
  End wait();

 private:
  pid_t pid_ = -1;
  bool isOver_ = false;
};

/// Sends a signal to the process of this number, unless it has ended or doesn't run the program. Yields whether it did.
bool sendTo(pid_t process, const std::filesystem::path& program, int signal);

/// The processes of this desktop that run a program.
std::vector<pid_t> processesOf(const std::filesystem::path& program);

/// Waits until no process of this desktop runs the program, but for `exception`. Yields how many still do after `time`.
std::size_t awaitEndOf(const std::filesystem::path& program, std::chrono::milliseconds time, pid_t exception = -1);

}  // namespace Soak
