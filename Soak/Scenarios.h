#pragma once

#include <optional>

#include "Soak/Report.h"

namespace Soak {

/// Options of the command line.
struct Settings {
  /// How many launches a scenario makes instead of its own number.
  std::optional<int> launches;
};

/// A hundred launches at a time, of which some are killed or terminated.
Report launches(const Settings& settings);

/// Launches while the host is restarted every second, by the scenario and by the bus in turn.
Report restarts(const Settings& settings);

/// Launches, and one with many commands, on a bus with low limits.
Report limits(const Settings& settings);

/// Launches while another launch waits for a folder on a dead network mount.
Report mount(const Settings& settings);

/// Launches that list windows while the X server is stopped for some seconds.
Report stopped(const Settings& settings);

/// Payloads from 1 MiB to the longest that can be sent, and one byte more: whether they arrive, and their memory.
Report payloads(const Settings& settings);

}  // namespace Soak
