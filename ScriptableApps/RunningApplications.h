#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/DesktopEntries.h"
#include "DesktopSupport/Window.h"

namespace ScriptableApps {

/// An application that shows itself to the user with at least one window. All texts are one line of UTF-8 each.
struct RunningApplication {
  /// The name of its desktop entry in the user's language, else that of its program's file, else its window's class.
  std::string name = {};
  /// The path of its desktop entry, else of its program; where neither can be told, its window's class, as of a program
  /// by that name in $PATH or as it is.
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

/// The applications behind `list`, each once, in the order in which the first windows of each appear there. Panels and
/// what else belongs to the desktop itself is none; a dialog belongs to the window it is for. A window that tells
/// neither class nor process cannot be told apart and is left out. `processes` is where the system tells about
/// processes.
std::vector<RunningApplication> runningApplications(const DesktopSupport::WindowList& list,
                                                    DesktopSupport::DesktopEntries& entries,
                                                    const std::filesystem::path& processes = "/proc");

}  // namespace ScriptableApps
