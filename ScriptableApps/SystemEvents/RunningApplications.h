#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/Windows/Window.h"

namespace ScriptableApps {

/// An application that shows itself to the user with at least one window. All texts are one line of UTF-8 each.
struct RunningApplication {
  /// The name of its desktop entry in the user's language, else that of its file; where that doesn't tell it from
  /// others (an interpreter by itself, a program whose windows have several classes), its windows' class.
  std::string name = {};
  /// The absolute path of its desktop entry, else of the script that its interpreter runs, else of its program.
  std::string file = {};
  /// The desktop file id without ".desktop".
  std::optional<std::string> entryId = {};
  /// The process of its first window.
  std::optional<pid_t> pid = {};
  /// Whether one of its windows has the user's attention.
  bool isFrontmost = false;
  /// Whether one of its windows is not minimised.
  bool isVisible = false;
};

/// What runs, and what had to be left out.
struct RunningApplications {
  std::vector<RunningApplication> applications = {};
  /// A sentence for each application that has no file here.
  std::vector<std::string> problems = {};
};

/// The applications behind `list`, each once, in the order in which the first windows of each appear there. Windows
/// without a desktop entry belong to one application if both their class and their file are the same; one without a
/// class belongs to the first application of its file. Panels and what else belongs to the desktop itself is none; a
/// dialog belongs to the window it is for. An application without a desktop entry is left out if no process of this
/// machine tells its file, or if there is no such file, or if its path is not one line of UTF-8. `processes` is where
/// the system tells about processes.
RunningApplications runningApplications(const DesktopSupport::WindowList& list, DesktopSupport::DesktopEntries& entries,
                                        const std::filesystem::path& processes = "/proc");

}  // namespace ScriptableApps
