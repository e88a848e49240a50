#pragma once

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "Soak/Launch.h"
#include "Soak/Owners.h"

namespace Soak {

/// What a scenario measured, and whether its demands held.
class Report {
 public:
  /// The text for the report's line.
  std::ostream& figures() { return figures_; }

  /// Demands that something hold. `otherwise` says what is wrong if it does not.
  void demand(bool holds, const std::string& otherwise);

  /// Demands that a count be zero.
  void demandNone(std::size_t count, const std::string& what);

  [[nodiscard]] bool holds() const { return broken_.empty(); }
  [[nodiscard]] std::string line() const;

 private:
  std::ostringstream figures_;
  std::vector<std::string> broken_;
};

/// Reports how many launches there were and how long the acknowledged ones took. Demands that all planned launches
/// began, and that only those failed whose process was sent a signal or that the bus had sent to a killed process (one
/// of `owners`). Returns the time within which 99 % were acknowledged, in milliseconds.
double reportLaunches(Report& report, const Plan& plan, const Outcome& outcome, const Owners* owners = nullptr);

/// Demands that the hosts received "deskloom://sent/NUMBER" once for each acknowledged launch, and at most once for
/// each other launch.
void demandDelivery(Report& report, const Outcome& outcome, const std::vector<std::string>& received);

}  // namespace Soak
