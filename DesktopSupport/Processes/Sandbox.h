#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "DesktopSupport/Processes/ProcessInfo.h"

namespace DesktopSupport {

/// The sandbox or the AppImage whose program a process runs, by the marks that these leave on it. A program that was
/// started from one, but is installed outside, is in none.
struct Sandbox {
  enum class Kind { flatpak, snap, appImage };
  Kind kind;
  /// The application id of a Flatpak, the name of a snap ("firefox", "firefox_work"), the path of an AppImage's file.
  std::string name;
  /// The usual desktop file id of its application; empty if it is unknown.
  std::string entryID = {};
  /// The folder in which an AppImage is mounted while it runs.
  std::filesystem::path folder = {};

  static std::optional<Sandbox> of(const ProcessInfo& process);
};

}  // namespace DesktopSupport
