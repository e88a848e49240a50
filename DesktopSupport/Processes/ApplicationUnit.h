#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace DesktopSupport {

/// The systemd unit that a launcher made for an application. By convention it is called
/// app[-<launcher>]-<application id>-<random>.scope or app[-<launcher>]-<application id>[@<random>].service.
struct ApplicationUnit {
  std::string launcher;
  std::string applicationID;
  /// Distinguishes the unit from the application's other units. GNOME writes the process id of the started program.
  std::string random;

  /// The innermost such unit in the text of /proc/<pid>/cgroup.
  static std::optional<ApplicationUnit> find(std::string_view controlGroups);
};

/// The snap that a process belongs to, from the text of /proc/<pid>/cgroup, as its desktop file id: "firefox_firefox".
std::optional<std::string> snapID(std::string_view controlGroups);

}  // namespace DesktopSupport
