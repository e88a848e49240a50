#include <algorithm>
#include <set>

#include "Soak/Host.h"
#include "Soak/Process.h"
#include "Soak/Scenarios.h"
#include "Tests/Support/StrictBus.h"

namespace Soak {

namespace {

/// Whether a process exits with status 0.
bool endsWell(Process& process) {
  if (!process.endsWithin(timeToEnd))
    process.send(SIGKILL);
  return process.wait().status == 0;
}

}  // namespace

Report limits(const Settings& settings) {
  const Plan plan = {.plugin = soakPlugin,
                     .count = settings.launches.value_or(1000),
                     .atATime = 20,
                     .url = &numberedCommand,
                     .time = std::chrono::seconds(60),
                     .mayBeRefused = true};
  const auto commands = static_cast<std::size_t>(10 * plan.count);
  Report report;
  const TestSupport::StrictBus bus;
  Process many({soakPlugin.program, "deskloomplugin://run/times=" + std::to_string(commands) + "+quit"});
  const auto made = carryOut(plan);
  report.demand(endsWell(many), "the process with many commands failed");
  reportLaunches(report, plan, made);
  report.demandNone(awaitEndOf(soakPlugin.program, timeToEnd), "processes are left");
  const auto received = Hosts().received();
  demandDelivery(report, made, received);

  std::multiset<std::string> ofMany;
  std::ranges::copy_if(received, std::inserter(ofMany, ofMany.end()),
                       [](const std::string& line) { return line.starts_with("deskloom://times/"); });
  const std::set<std::string> different(ofMany.begin(), ofMany.end());
  report.figures() << "; " << ofMany.size() << " of " << commands << " commands of one process";
  report.demandNone(commands - different.size(), "commands of one process lost");
  report.demandNone(ofMany.size() - different.size(), "commands of one process doubled");
  return report;
}

}  // namespace Soak
