#pragma once

#include <chrono>
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

/// Many launches of a plug-in, one half by its command line and the other half by the bus.
struct Plan {
  const Plugin& plugin;
  int count;
  /// How many are under way at a time.
  int atATime;
  /// What the launch of this number is launched with. The first is number 1.
  std::function<std::string(int number)> url;
  /// No launch begins after that.
  std::chrono::seconds time;
  /// How many percent of the launches are killed, and how many ended with SIGTERM, at random moments on their way.
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
  /// Its process, if it has one, and the signal that it was sent on its way.
  pid_t process = -1;
  int signal = 0;
  Clock::time_point signalled = {};
  /// Why it was not acknowledged. A process that was sent a signal has none.
  std::string error = {};
  /// Whether that is that the process which the bus gave it to ended without an answer.
  bool isUnanswered = false;
  /// Whether that is that it was beyond a limit of the bus, which gave it to nobody.
  bool isRefused = false;
};

/// Launches as planned and yields all that have begun, each of which has ended.
std::vector<Launch> carryOut(const Plan& plan);

}  // namespace Soak
