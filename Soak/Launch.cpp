#include "Soak/Launch.h"

#include <algorithm>
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

/// After this time a launch counts as one that never ends.
constexpr std::chrono::seconds longestLaunch{30};

milliseconds since(Clock::time_point begin) {
  return std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
}

/// Chooses the launches that come with a signal, so that their share is as planned, and sends the signals.
class Strikes {
 public:
  explicit Strikes(const Plan& plan) : killed_{SIGKILL, plan.percentKilled}, ended_{SIGTERM, plan.percentEnded} {}

  /// The signal that comes with the launch of this number, if any.
  std::optional<int> next(int number) {
    const std::scoped_lock lock(mutex_);
    for (Share* share : {&killed_, &ended_})
      if (100 * share->count < share->percent * number) {
        ++share->count;
        return share->signal;
      }
    return std::nullopt;
  }

  /// A time after the start of a launch at which its process probably still runs.
  milliseconds delay() {
    const std::scoped_lock lock(mutex_);
    return milliseconds(std::uniform_int_distribution<milliseconds::rep>(0, usual_.count())(random_));
  }

  /// Records how long the process of a launch took.
  void note(milliseconds duration) {
    const std::scoped_lock lock(mutex_);
    usual_ += (duration - usual_) / 8;
  }

  /// Sends the process the signal. If it has ended, or is already terminating (a second SIGTERM would end it at once),
  /// another launch will come with the signal.
  void hit(std::optional<pid_t> process, const std::string& program, int signal, bool hasName) {
    const auto now = Clock::now();
    const bool isHit = process && !(signal == SIGTERM && isEnding(*process)) && sendTo(*process, program, signal);
    const std::scoped_lock lock(mutex_);
    if (isHit)
      strikes_.push_back({*process, signal, now, hasName});
    else
      --(signal == SIGKILL ? killed_ : ended_).count;
  }

  std::vector<Strike> take() { return std::move(strikes_); }

 private:
  [[nodiscard]] bool isEnding(pid_t process) {
    const std::scoped_lock lock(mutex_);
    return std::ranges::any_of(
        strikes_, [process](const Strike& strike) { return strike.process == process && strike.signal == SIGTERM; });
  }

  struct Share {
    int signal;
    int percent;
    int count = 0;
  };

  std::mutex mutex_;
  std::mt19937 random_;
  milliseconds usual_{20};
  Share killed_;
  Share ended_;
  std::vector<Strike> strikes_;
};

class Launches {
 public:
  explicit Launches(const Plan& plan) : plan_(plan), strikes_(plan), deadline_(Clock::now() + plan.time) {}

  Outcome carryOut() {
    {
      std::vector<std::jthread> threads;
      for (int thread = 0; thread < plan_.atATime; ++thread)
        threads.emplace_back([this] { launchInTurn(); });
    }
    return {std::move(launches_), strikes_.take()};
  }

 private:
  void launchInTurn() {
    const Bus bus;
    while (const int number = next()) {
      if (number == plan_.count / 2 + 1)
        plan_.halfway();
      add(nextDoor() == Door::commandLine ? byCommandLine(number, bus) : byBus(number, bus));
    }
  }

  /// The number of the next launch; 0 if there is none.
  int next() {
    const std::scoped_lock lock(mutex_);
    return begun_ < plan_.count && Clock::now() < deadline_ ? ++begun_ : 0;
  }

  /// At random, because launches with a signal are evenly spaced.
  Door nextDoor() {
    const std::scoped_lock lock(mutex_);
    return random_() % 2 == 0 ? Door::commandLine : Door::bus;
  }

  void add(Launch launch) {
    const std::scoped_lock lock(mutex_);
    launches_.push_back(std::move(launch));
  }

  Launch byCommandLine(int number, const Bus& bus) {
    Launch launch{.number = number, .door = Door::commandLine, .begin = Clock::now()};
    Process process({plan_.plugin.program, plan_.url(number)});
    launch.process = process.pid();
    if (const auto signal = strikes_.next(number)) {
      static_cast<void>(process.endsWithin(strikes_.delay()));
      const bool hasName = bus.ownerOf(plan_.plugin.busName) == process.pid();
      strikes_.hit(process.pid(), plan_.plugin.program, *signal, hasName);
    }
    const bool isHung = !process.endsWithin(longestLaunch);
    if (isHung)
      process.send(SIGKILL);
    const int status = process.wait().status;
    launch.end = Clock::now();
    launch.isAcknowledged = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (isHung)
      launch.error = "a process does not end";
    else if (!launch.isAcknowledged)
      launch.error = "a process ended with " + std::to_string(status);
    strikes_.note(since(launch.begin));
    return launch;
  }

  Launch byBus(int number, const Bus& bus) {
    if (const auto signal = strikes_.next(number))
      strikes_.hit(bus.ownerOf(plan_.plugin.busName), plan_.plugin.program, *signal, true);
    Launch launch{.number = number, .door = Door::bus, .begin = Clock::now()};
    const auto error = bus.open(plan_.plugin.busName, plan_.url(number), longestLaunch);
    launch.end = Clock::now();
    launch.isAcknowledged = !error;
    if (error) {
      launch.error = error->name + ": " + error->message;
      launch.isUnanswered = error->name == DesktopSupport::BusErrorName::noReply ||
                            error->message == "The process with the launch was killed.";
      launch.isRefused = error->name == "org.freedesktop.DBus.Error.LimitsExceeded";
    }
    return launch;
  }

  const Plan& plan_;
  Strikes strikes_;
  Clock::time_point deadline_;
  std::mutex mutex_;
  std::mt19937 random_;
  int begun_ = 0;
  std::vector<Launch> launches_;
};

}  // namespace

std::string numberedCommand(int number) {
  return "deskloomplugin://run/send=" + std::to_string(number) + "+quit";
}

std::size_t Outcome::acknowledged() const {
  return static_cast<std::size_t>(std::ranges::count_if(launches, &Launch::isAcknowledged));
}

Outcome carryOut(const Plan& plan) {
  return Launches(plan).carryOut();
}

}  // namespace Soak
