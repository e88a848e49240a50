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

/// An application of a snap.
struct SnapApplication {
  /// The snap's name: "firefox". If the same snap is installed several times, each has a key: "firefox_work".
  std::string instance;
  /// The name of one of its applications; empty if only the snap is known.
  std::string application;

  /// The application whose processes are in these control groups, from the text of /proc/<pid>/cgroup. Its unit is
  /// snap.<instance>.<application>-<uuid>.scope, or with a dot before the uuid, or
  /// snap.<instance>.<application>.service.
  static std::optional<SnapApplication> find(std::string_view controlGroups);

  /// The application whose processes have this AppArmor label, such as "snap.firefox.firefox (enforce)".
  static std::optional<SnapApplication> fromLabel(std::string_view label);

  /// The usual desktop file id: "firefox_firefox", "firefox+work_firefox".
  [[nodiscard]] std::string entryID() const;

  bool operator==(const SnapApplication&) const = default;
};

}  // namespace DesktopSupport
