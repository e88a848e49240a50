#pragma once

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "Soak/Launch.h"
#include "Soak/Owners.h"

namespace Soak {

/// What a scenario has measured and whether what it demands held.
class Report {
 public:
  /// What is written to it stands in the report's line.
  std::ostream& figures() { return figures_; }

  /// Demands something. `otherwise` says what is wrong if it does not hold.
  void demand(bool holds, const std::string& otherwise);

  /// Demands that there be none of these.
  void demandNone(std::size_t count, const std::string& what);

  [[nodiscard]] bool holds() const { return broken_.empty(); }
  [[nodiscard]] std::string line() const;

 private:
  std::ostringstream figures_;
  std::vector<std::string> broken_;
};

/// Tells how many launches there were and how long those took that were acknowledged. Demands that all planned ones
/// began and that none failed, but for those whose process was sent a signal, and those that the bus had given to a
/// process that was killed: one of `owners`. Yields the time in which 99 % were acknowledged, in milliseconds.
double reportLaunches(Report& report, const Plan& plan, const Outcome& outcome, const Owners* owners = nullptr);

/// Demands that the hosts have received "deskloom://sent/NUMBER" once for each launch that was acknowledged, and at
/// most once for each other one.
void demandDelivery(Report& report, const Outcome& outcome, const std::vector<std::string>& received);

}  // namespace Soak
