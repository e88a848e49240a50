#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace Soak {

using Clock = std::chrono::steady_clock;

/// A plug-in to launch.
struct Plugin {
  std::string program;
  std::string busName;
};

/// The plug-in that does what its launch URLs say, and Gleanery.
extern const Plugin soakPlugin;
extern const Plugin gleanery;

/// The launch URL that makes the soak plug-in send "deskloom://sent/NUMBER" and quit.
std::string numberedCommand(int number);

/// Many launches of a plug-in: about half from the command line, the others over the bus.
struct Plan {
  const Plugin& plugin;
  int count;
  /// How many run at a time.
  int atATime;
  /// The launch URL with this number. The first number is 1.
  std::function<std::string(int number)> url;
  /// No launch begins after this time.
  std::chrono::seconds time;
  /// How many processes are killed, and how many are sent SIGTERM, in percent of the launches. From the command line it
  /// is the launch's own process, at a random moment; over the bus, the process that owns the plug-in's name when the
  /// launch begins.
  int percentKilled = 0;
  int percentEnded = 0;
  /// Whether the bus may refuse launches because of its limits.
  bool mayBeRefused = false;
  /// Called when the first half has begun, on the thread that begins the others.
  std::function<void()> halfway = [] {};
};

enum class Door { commandLine, bus };

/// The outcome of a launch.
struct Launch {
  int number;
  Door door;
  Clock::time_point begin;
  Clock::time_point end = {};
  /// Its process exited with status 0, or its method call was answered.
  bool isAcknowledged = false;
  /// Its process, or -1 for a method call.
  pid_t process = -1;
  /// Why it was not acknowledged.
  std::string error = {};
  /// Whether the error is that the process to which the bus sent it ended without an answer.
  bool isUnanswered = false;
  /// Whether the error is that it exceeded a limit of the bus, which sent it to no process.
  bool isRefused = false;
};

/// A process that was sent SIGKILL or SIGTERM.
struct Strike {
  pid_t process;
  int signal;
  Clock::time_point time;
  /// Whether it owned the plug-in's name right before, according to the bus.
  bool hadName;
};

struct Outcome {
  /// All launches that have begun. All of them have ended.
  std::vector<Launch> launches;
  std::vector<Strike> strikes;

  /// How many of the launches were acknowledged.
  [[nodiscard]] std::size_t acknowledged() const;
};

/// Makes the launches of the plan.
Outcome carryOut(const Plan& plan);

}  // namespace Soak
