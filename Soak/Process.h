#pragma once

#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/System/FileDescriptor.h"

namespace Soak {

/// How long processes may take to end when they have nothing left to do.
inline constexpr std::chrono::seconds timeToEnd{30};

/// Waits for the end of any process.
class ProcessEnd {
 public:
  explicit ProcessEnd(pid_t process);

  /// Whether the process ends within `time` or has ended already.
  [[nodiscard]] bool isWithin(std::chrono::milliseconds time) const;

 private:
  DesktopSupport::FileDescriptor descriptor_;
};

/// A program that this one has started. The destructor kills it if it still runs.
class Process {
 public:
  /// How a process ended: its status from `waitpid`, and its peak memory in bytes.
  struct End {
    int status;
    long peakMemory;
  };

  /// The file to which the standard error of all of them is appended.
  static std::filesystem::path log();

  /// Starts `arguments[0]` without input and output. Throws if that fails.
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

/// Sends a signal to a process, unless it has ended or doesn't run the program. Returns whether it sent it.
bool sendTo(pid_t process, const std::filesystem::path& program, int signal);

/// The processes of this desktop that run a program.
std::vector<pid_t> processesOf(const std::filesystem::path& program);

/// Waits until no process of this desktop except `exception` runs the program. Returns how many still do after `time`.
std::size_t awaitEndOf(const std::filesystem::path& program, std::chrono::milliseconds time, pid_t exception = -1);

}  // namespace Soak
