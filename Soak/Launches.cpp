#include "Soak/Host.h"
#include "Soak/Process.h"
#include "Soak/Scenarios.h"

namespace Soak {

Report launches(const Settings& settings) {
  constexpr double longest = 1000;
  const Plan plan = {.plugin = soakPlugin,
                     .count = settings.launches.value_or(10000),
                     .atATime = 100,
                     .url = &numberedCommand,
                     .time = std::chrono::minutes(4),
                     .percentKilled = 5,
                     .percentEnded = 5};
  Report report;
  const Owners owners(soakPlugin.busName);
  const auto made = carryOut(plan);
  const double usual = reportLaunches(report, plan, made, &owners);
  report.demand(usual < longest, "p99 above 1 s");
  report.demandNone(awaitEndOf(soakPlugin.program, timeToEnd), "processes are left");
  demandDelivery(report, made, Hosts().received());
  return report;
}

}  // namespace Soak
