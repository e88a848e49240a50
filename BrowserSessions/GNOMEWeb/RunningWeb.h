#pragma once

#include <filesystem>
#include <optional>

#include <sys/types.h>

#include "DesktopSupport/System/ProcessInfo.h"

namespace BrowserSessions {

/// A GNOME Web that runs.
struct RunningWeb {
  /// The folder of its profile.
  std::filesystem::path profile;
  /// None for one in a Flatpak, for which another process is on the bus.
  std::optional<pid_t> process;

  bool operator==(const RunningWeb&) const = default;
};

/// The name that a running GNOME Web has on the session bus; a private one and a web application have none or another.
inline constexpr const char* webBusName = "org.gnome.Epiphany";

/// Below which folders GNOME Web keeps its profile.
struct WebHome {
  std::filesystem::path home;
  /// Where programs of this user keep their data: $XDG_DATA_HOME.
  std::filesystem::path data;

  /// The user's.
  static WebHome ofUser();
};

/// The profile folder of the GNOME Web that runs in this process, in a Flatpak or not. None where the process is in the
/// sandbox of another program.
std::optional<std::filesystem::path> webProfile(const DesktopSupport::ProcessInfo& process,
                                                const WebHome& home = WebHome::ofUser());

/// The GNOME Web that runs, as the session bus tells. None where none runs.
std::optional<RunningWeb> runningWeb(const WebHome& home = WebHome::ofUser());

}  // namespace BrowserSessions
