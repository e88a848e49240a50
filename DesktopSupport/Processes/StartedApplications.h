#pragma once

#include <filesystem>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/Processes/ApplicationUnit.h"

namespace DesktopSupport {

/// An application that a launcher, such as GNOME Shell, started in a systemd unit of its own and that still runs.
struct StartedApplication {
  ApplicationUnit unit;
  /// The unit's processes in ascending order, at least one.
  std::vector<pid_t> processes;

  /// The process that the unit was made for, or else the first that is left.
  [[nodiscard]] pid_t mainProcess() const;
};

/// The control group in which systemd keeps the user's applications. It need not exist.
std::filesystem::path applicationSlice();

/// The applications in a control group and the slices in it, in the order of their main processes. Empty if it cannot
/// be read.
std::vector<StartedApplication> startedApplications(const std::filesystem::path& slice = applicationSlice());

}  // namespace DesktopSupport
