#pragma once

#include <array>
#include <chrono>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/Windows/Window.h"

namespace ScriptableApps {

/// What is known of a program that shows folders.
struct FileManagerProgram {
  /// The name of its file, such as "thunar".
  std::string_view name;
  /// The classes and application ids of its windows, in lower case; an empty text stands for none.
  std::array<std::string_view, 2> classes;
  /// The name that it owns on the bus while it runs. Null if it owns none, or one for each of its processes.
  const char* busName = nullptr;
  /// What its windows' titles have after the folder's name.
  std::string_view titleEnd = {};
};

/// A running file manager.
struct FileManager {
  /// Its connection to the session bus, ":1.42"; empty if it has no name there.
  std::string connection = {};
  std::optional<pid_t> pid = {};
  /// Null for a program that is not among those known.
  const FileManagerProgram* program = nullptr;
  /// Its windows, the topmost first, without dialogs and the desktop's icons.
  std::vector<DesktopSupport::Window> windows = {};
  /// Whether `windows` are all that it has.
  bool areWindowsKnown = false;
  /// Whether it has left a question on the bus without an answer, so that it need not be asked again.
  bool isSilent = false;
};
using FileManagers = std::vector<FileManager>;

/// The windows on the screen, or why they are unknown.
using WindowsOnScreen = std::expected<DesktopSupport::WindowList, DesktopSupport::DesktopError>;

/// The file managers that have a name on the bus (`nullptr` if there is none), followed by others that show windows,
/// each once. Starts none, and waits for each answer for `patience` at most.
FileManagers runningFileManagers(const DesktopSupport::SessionBus* bus, const WindowsOnScreen& screen,
                                 std::chrono::milliseconds patience);

/// The name of the file manager's program, such as "thunar".
std::string nameOf(const FileManager& fileManager);

}  // namespace ScriptableApps
