#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace Soak {

using Clock = std::chrono::steady_clock;

/// A plug-in, by what it is launched with.
struct Plugin {
  std::string program;
  std::string busName;
};

/// The plug-in that does what its launch URLs say, and Gleanery.
extern const Plugin soakPlugin;
extern const Plugin gleanery;

/// The launch URL that has the soak plug-in send "deskloom://sent/NUMBER" and quit.
std::string numberedCommand(int number);

/// Many launches of a plug-in, about one half by its command line and the other half by the bus.
struct Plan {
  const Plugin& plugin;
  int count;
  /// How many are under way at a time.
  int atATime;
  /// What the launch of this number is launched with. The first is number 1.
  std::function<std::string(int number)> url;
  /// No launch begins after that.
  std::chrono::seconds time;
  /// How many processes are killed, and how many ended with SIGTERM, in percent of the launches: of those by the
  /// command line their own, at random moments, and of those by the bus the one that has the plug-in's name when they
  /// begin.
  int percentKilled = 0;
  int percentEnded = 0;
  /// Whether the bus may refuse some, for its limits.
  bool mayBeRefused = false;
  /// Called when the first half has begun, by who begins the others.
  std::function<void()> halfway = [] {};
};

enum class Door { commandLine, bus };

/// What came of a launch.
struct Launch {
  int number;
  Door door;
  Clock::time_point begin;
  Clock::time_point end = {};
  /// Its process exited with status 0, or its method call was answered.
  bool isAcknowledged = false;
  /// Its process; -1 for a method call.
  pid_t process = -1;
  /// Why it was not acknowledged.
  std::string error = {};
  /// Whether that is that the process which the bus gave it to ended without an answer.
  bool isUnanswered = false;
  /// Whether that is that it was beyond a limit of the bus, which gave it to nobody.
  bool isRefused = false;
};

/// A process that was sent SIGKILL or SIGTERM.
struct Strike {
  pid_t process;
  int signal;
  Clock::time_point time;
  /// Whether it had the plug-in's name, as far as the bus could tell right before.
  bool hadName;
};

struct Outcome {
  /// All launches that have begun, each of which has ended.
  std::vector<Launch> launches;
  std::vector<Strike> strikes;

  /// How many of the launches were acknowledged.
  [[nodiscard]] std::size_t acknowledged() const;
};

/// Launches as planned.
Outcome carryOut(const Plan& plan);

}  // namespace Soak
