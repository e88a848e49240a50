#include "Soak/Launch.h"

#include <csignal>
#include <mutex>
#include <optional>
#include <random>
#include <thread>
#include <utility>

#include <sys/wait.h>

#include "Soak/Bus.h"
#include "Soak/Process.h"

namespace Soak {

const Plugin soakPlugin = {.program = SOAK_PLUGIN_PROGRAM, .busName = "com.example.SoakPlugin"};
const Plugin gleanery = {.program = GLEANERY_PROGRAM, .busName = "com.quillary.Gleanery"};

namespace {

using std::chrono::milliseconds;

/// How long a launch may take before it counts as one that never ends.
constexpr std::chrono::seconds longestLaunch{30};

milliseconds since(Clock::time_point begin) {
  return std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
}

/// A signal, and how long after its start a process gets it.
struct Strike {
  int signal;
  milliseconds delay;
};

/// Deals out the signals, so that the planned share of all launches gets them.
class Strikes {
 public:
  explicit Strikes(const Plan& plan) : killed_{SIGKILL, plan.percentKilled}, ended_{SIGTERM, plan.percentEnded} {}

  /// What hits the process of the launch of this number.
  std::optional<Strike> next(int number) {
    const std::scoped_lock lock(mutex_);
    for (Share* share : {&killed_, &ended_})
      if (100 * share->count < share->percent * number) {
        ++share->count;
        return Strike{share->signal, delay()};
      }
    return std::nullopt;
  }

  /// The process had ended before.
  void missed(int signal) {
    const std::scoped_lock lock(mutex_);
    --(signal == SIGKILL ? killed_ : ended_).count;
  }

  /// Notes how long a process takes that gets no signal.
  void note(milliseconds duration) {
    const std::scoped_lock lock(mutex_);
    usual_ += (duration - usual_) / 8;
  }

 private:
  struct Share {
    int signal;
    int percent;
    int count = 0;
  };

  milliseconds delay() {
    return milliseconds(std::uniform_int_distribution<milliseconds::rep>(0, usual_.count())(random_));
  }

  std::mutex mutex_;
  std::mt19937 random_;
  milliseconds usual_{20};
  Share killed_;
  Share ended_;
};

class Launches {
 public:
  explicit Launches(const Plan& plan) : plan_(plan), strikes_(plan), deadline_(Clock::now() + plan.time) {}

  std::vector<Launch> carryOut() {
    {
      std::vector<std::jthread> threads;
      for (int thread = 0; thread < plan_.atATime; ++thread)
        threads.emplace_back([this] { launchInTurn(); });
    }
    return std::move(launches_);
  }

 private:
  void launchInTurn() {
    const Bus bus;
    while (const int number = next()) {
      if (number == plan_.count / 2 + 1)
        plan_.halfway();
      // In pairs, as every second number would be in step with every second launch at a time.
      add(number / 2 % 2 == 0 ? byCommandLine(number) : byBus(number, bus));
    }
  }

  /// The number of the next launch; 0 if there is none.
  int next() {
    const std::scoped_lock lock(mutex_);
    return begun_ < plan_.count && Clock::now() < deadline_ ? ++begun_ : 0;
  }

  void add(Launch launch) {
    const std::scoped_lock lock(mutex_);
    launches_.push_back(std::move(launch));
  }

  Launch byCommandLine(int number) {
    Launch launch{.number = number, .door = Door::commandLine, .begin = Clock::now()};
    Process process({plan_.plugin.program, plan_.url(number)});
    launch.process = process.pid();
    if (const auto strike = strikes_.next(number))
      hit(process, *strike, launch);
    const bool isHung = !process.endsWithin(longestLaunch);
    if (isHung)
      process.send(SIGKILL);
    const int status = process.wait().status;
    launch.end = Clock::now();
    launch.isAcknowledged = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (isHung)
      launch.error = "a process does not end";
    else if (!launch.isAcknowledged && launch.signal == 0)
      launch.error = "a process ended with " + std::to_string(status);
    if (launch.signal == 0)
      strikes_.note(since(launch.begin));
    return launch;
  }

  void hit(const Process& process, const Strike& strike, Launch& launch) {
    if (process.endsWithin(strike.delay))
      return strikes_.missed(strike.signal);
    launch.signalled = Clock::now();
    launch.signal = strike.signal;
    process.send(strike.signal);
  }

  Launch byBus(int number, const Bus& bus) const {
    Launch launch{.number = number, .door = Door::bus, .begin = Clock::now()};
    const auto error = bus.open(plan_.plugin.busName, plan_.url(number), longestLaunch);
    launch.end = Clock::now();
    launch.isAcknowledged = !error;
    if (error) {
      launch.error = error->name + ": " + error->message;
      launch.isUnanswered = error->name == DesktopSupport::BusErrorName::noReply;
      launch.isRefused = error->name == "org.freedesktop.DBus.Error.LimitsExceeded";
    }
    return launch;
  }

  const Plan& plan_;
  Strikes strikes_;
  Clock::time_point deadline_;
  std::mutex mutex_;
  int begun_ = 0;
  std::vector<Launch> launches_;
};

}  // namespace

std::string numberedCommand(int number) {
  return "deskloomplugin://run/send=" + std::to_string(number) + "+quit";
}

std::vector<Launch> carryOut(const Plan& plan) {
  return Launches(plan).carryOut();
}

}  // namespace Soak
