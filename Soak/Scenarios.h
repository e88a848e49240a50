#pragma once

#include <optional>

#include "Soak/Report.h"

namespace Soak {

/// What the command line asks for.
struct Settings {
  /// How many launches a scenario makes, if not its own number.
  std::optional<int> launches;
};

/// Launches from a hundred processes at a time, some of which are killed or ended on their way.
Report launches(const Settings& settings);

/// Launches while the host is restarted every second, by hand and by the bus in turn.
Report restarts(const Settings& settings);

/// Launches, and one with many commands, on a bus with low limits.
Report limits(const Settings& settings);

/// Launches while another one waits for a folder on a dead network mount.
Report mount(const Settings& settings);

/// Launches that list windows while the X server is stopped for some seconds.
Report stopped(const Settings& settings);

/// Payloads from 1 MiB to the longest that arrives, and one more: whether they arrive, and the memory that they take.
Report payloads(const Settings& settings);

}  // namespace Soak
