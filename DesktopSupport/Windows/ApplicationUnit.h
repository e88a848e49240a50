#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace DesktopSupport {

/// The unit that a launcher made for an application with systemd, by the convention for its name:
/// app[-<launcher>]-<application id>-<random>.scope or app[-<launcher>]-<application id>[@<random>].service.
struct ApplicationUnit {
  std::string launcher;
  std::string applicationId;
  /// What tells it from the application's other units; the desktops of GNOME write the process id of the program
  /// started.
  std::string random;

  /// The innermost such unit in the text of /proc/<pid>/cgroup.
  static std::optional<ApplicationUnit> find(std::string_view controlGroups);
};

/// The snap that a process belongs to, from the text of /proc/<pid>/cgroup, as the desktop file id that snaps get:
/// "firefox_firefox".
std::optional<std::string> snapId(std::string_view controlGroups);

}  // namespace DesktopSupport
