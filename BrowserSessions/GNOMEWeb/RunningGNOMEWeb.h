#pragma once

#include <filesystem>
#include <optional>

#include <sys/types.h>

#include "DesktopSupport/Processes/ProcessInfo.h"

namespace BrowserSessions {

/// A GNOME Web that runs.
struct RunningGNOMEWeb {
  /// The folder of its profile.
  std::filesystem::path profile;
  /// `nullopt` if it runs as a Flatpak, since the bus then knows another process in its place.
  std::optional<pid_t> process;

  bool operator==(const RunningGNOMEWeb&) const = default;
};

/// The name of a running GNOME Web on the session bus. A private instance and a web application have another or none.
inline constexpr const char* gnomeWebBusName = "org.gnome.Epiphany";

/// The folders below which GNOME Web keeps its profile.
struct GNOMEWebHome {
  std::filesystem::path home;
  /// The folder for data files, $XDG_DATA_HOME.
  std::filesystem::path data;

  /// The folders of the user.
  static GNOMEWebHome ofUser();
};

/// The profile folder of the GNOME Web that runs in this process, as a Flatpak or not; `nullopt` if the process is in
/// the sandbox of another program.
std::optional<std::filesystem::path> gnomeWebProfile(const DesktopSupport::ProcessInfo& process,
                                                     const GNOMEWebHome& home = GNOMEWebHome::ofUser());

/// The GNOME Web that has the name on the session bus; `nullopt` if none runs.
std::optional<RunningGNOMEWeb> runningGNOMEWeb(const GNOMEWebHome& home = GNOMEWebHome::ofUser());

}  // namespace BrowserSessions
