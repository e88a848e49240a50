#include "Soak/Report.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iomanip>
#include <map>

#include "DesktopSupport/System/DisplayableText.h"
#include "Soak/Process.h"

namespace Soak {

namespace {

double milliseconds(const Launch& launch) {
  return std::chrono::duration<double, std::milli>(launch.end - launch.begin).count();
}

/// The durations of the acknowledged launches, in milliseconds.
class Times {
 public:
  explicit Times(const std::vector<Launch>& launches) {
    for (const Launch& launch : launches)
      if (launch.isAcknowledged)
        times_.push_back(milliseconds(launch));
    std::ranges::sort(times_);
  }

  /// The duration within which this share of them was acknowledged, or 0 if there are none.
  [[nodiscard]] double of(double share) const {
    if (times_.empty())
      return 0;
    const auto last = static_cast<double>(times_.size() - 1);
    return times_[static_cast<std::size_t>(share * last)];
  }

 private:
  std::vector<double> times_;
};

std::ptrdiff_t countOf(int signal, const Outcome& outcome) {
  return std::ranges::count(outcome.strikes, signal, &Strike::signal);
}

/// Whether the launch's own process was sent a signal.
bool wasHit(const Launch& launch, const Outcome& outcome) {
  return std::ranges::any_of(outcome.strikes, [&](const Strike& strike) {
    return strike.process == launch.process && strike.time >= launch.begin && strike.time <= launch.end;
  });
}

/// Whether the launch failed right after a process was killed to which the bus may have sent it.
bool wasGivenToAKilled(const Launch& launch, const Outcome& outcome, const Owners* owners) {
  constexpr std::chrono::seconds rightAfter{1};
  return launch.isUnanswered && owners != nullptr && std::ranges::any_of(outcome.strikes, [&](const Strike& strike) {
           return strike.signal == SIGKILL && (strike.hadName || owners->include(strike.process, strike.time)) &&
                  strike.time <= launch.end && launch.end - strike.time < rightAfter;
         });
}

std::string lastLineOfLog() {
  std::ifstream log(Process::log());
  std::string last;
  for (std::string line; std::getline(log, line);)
    last = line;
  return DesktopSupport::displayable(last.substr(0, 200));
}

}  // namespace

void Report::demand(bool holds, const std::string& otherwise) {
  if (!holds)
    broken_.push_back(otherwise);
}

void Report::demandNone(std::size_t count, const std::string& what) {
  demand(count == 0, std::to_string(count) + ' ' + what);
}

std::string Report::line() const {
  if (holds())
    return figures_.str() + ": held";
  std::string text = figures_.str() + ": NOT HELD";
  const char* separator = ": ";
  for (const std::string& wrong : broken_) {
    text += separator + wrong;
    separator = ", ";
  }
  if (const auto last = lastLineOfLog(); !last.empty())
    text += "; the log ends with: " + last;
  return text;
}

double reportLaunches(Report& report, const Plan& plan, const Outcome& outcome, const Owners* owners) {
  std::size_t givenToKilled = 0;
  std::size_t refused = 0;
  std::map<std::string, std::size_t> errors;
  for (const Launch& launch : outcome.launches) {
    if (launch.error.empty() || wasHit(launch, outcome))
      continue;
    if (wasGivenToAKilled(launch, outcome, owners))
      ++givenToKilled;
    else if (launch.isRefused && plan.mayBeRefused)
      ++refused;
    else
      ++errors[launch.error];
  }
  const Times times(outcome.launches);
  auto& figures = report.figures();
  figures << outcome.launches.size() << " launches";
  if (!outcome.strikes.empty())
    figures << " (" << countOf(SIGKILL, outcome) << " processes killed, with " << givenToKilled
            << " calls sent to them, " << countOf(SIGTERM, outcome) << " terminated)";
  if (refused > 0)
    figures << " (" << refused << " refused by the bus)";
  figures << std::fixed << std::setprecision(0) << ", p50 " << times.of(0.5) << " ms, p99 " << times.of(0.99)
          << " ms, max " << times.of(1) << " ms";
  report.demandNone(static_cast<std::size_t>(plan.count) - outcome.launches.size(), "never begun");
  for (const auto& [error, count] : errors)
    report.demandNone(count, "failed with \"" + error + '"');
  return times.of(0.99);
}

void demandDelivery(Report& report, const Outcome& outcome, const std::vector<std::string>& received) {
  std::map<std::string, int> times;
  for (const std::string& line : received)
    ++times[line];
  std::size_t lost = 0;
  std::size_t doubled = 0;
  for (const Launch& launch : outcome.launches) {
    const auto count = times["deskloom://sent/" + std::to_string(launch.number)];
    lost += launch.isAcknowledged && count == 0 ? 1 : 0;
    doubled += count > 1 ? 1 : 0;
  }
  report.demandNone(lost, "lost");
  report.demandNone(doubled, "doubled");
}

}  // namespace Soak
