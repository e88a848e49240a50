#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/Windows/Window.h"

namespace ScriptableApps {

/// An application that shows at least one window to the user. Each text is one line of UTF-8.
struct RunningApplication {
  /// The name of its desktop entry in the user's language, or else of the one inside its AppImage, or else the name of
  /// its file. If that would not tell it from other applications (a bare interpreter, a program whose windows have
  /// several classes), the class of its windows.
  std::string name = {};
  /// The absolute path of its desktop entry, or else of its AppImage, or else of the script that its interpreter runs,
  /// or else of its program. It can still be opened when the application has ended.
  std::string file = {};
  /// The desktop file id without ".desktop".
  std::optional<std::string> entryID = {};
  /// The process of its first window.
  std::optional<pid_t> pid = {};
  /// Whether one of its windows is the active one.
  bool isFrontmost = false;
  /// Whether at least one of its windows is not minimised.
  bool isVisible = false;
};

/// The applications that run, and those that had to be left out.
struct RunningApplications {
  std::vector<RunningApplication> applications = {};
  /// A sentence for each application that is left out.
  std::vector<std::string> problems = {};
};

/// The applications that own the windows in `list`, each once, in the order of their first windows.
///
/// Windows without a desktop entry belong to one application if they have the same class and the same file, or the same
/// AppImage; one without a class belongs to the first application with its file. Panels and other parts of the desktop
/// belong to none, and a dialog belongs to the application of its parent window.
///
/// An application without a desktop entry is left out if it is a Flatpak or a snap, or if its file is unknown, does not
/// exist, or has a path that is not one line of UTF-8. A process id that no process here has is ignored, since a source
/// may be in another PID namespace.
///
/// `processes` is the folder in which the system describes processes.
RunningApplications runningApplications(const DesktopSupport::WindowList& list, DesktopSupport::DesktopEntries& entries,
                                        const std::filesystem::path& processes = "/proc");

}  // namespace ScriptableApps
