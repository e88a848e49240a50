#include <condition_variable>
#include <mutex>
#include <thread>

#include "Soak/Host.h"
#include "Soak/Process.h"
#include "Soak/Scenarios.h"

namespace Soak {

namespace {

/// Ends the host every second during its lifetime. Every other time it starts the next host itself; otherwise the bus
/// does so when one is needed.
class Restarts {
 public:
  explicit Restarts(Hosts& hosts) : hosts_(hosts), thread_([this](const std::stop_token& stop) { run(stop); }) {}

  /// Stops ending hosts, and returns how many it has ended.
  int stop() {
    thread_.request_stop();
    thread_.join();
    return count_;
  }

 private:
  void run(const std::stop_token& stop) {
    std::mutex mutex;
    std::condition_variable_any stopped;
    std::unique_lock lock(mutex);
    while (!stopped.wait_for(lock, stop, std::chrono::seconds(1), [&stop] { return stop.stop_requested(); })) {
      hosts_.end();
      if (++count_ % 2 == 0)
        hosts_.start();
    }
  }

  Hosts& hosts_;
  int count_ = 0;
  std::jthread thread_;
};

}  // namespace

Report restarts(const Settings& settings) {
  const Plan plan = {.plugin = soakPlugin,
                     .count = settings.launches.value_or(1000),
                     .atATime = 4,
                     .url = &numberedCommand,
                     .time = std::chrono::seconds(90)};
  Report report;
  Hosts hosts;
  Restarts restarts(hosts);
  const auto made = carryOut(plan);
  const std::size_t left = awaitEndOf(soakPlugin.program, timeToEnd);
  reportLaunches(report, plan, made);
  report.figures() << ", " << restarts.stop() << " restarts";
  report.demandNone(left, "processes are left");
  demandDelivery(report, made, hosts.received());
  return report;
}

}  // namespace Soak
