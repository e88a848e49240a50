#pragma once

#include <chrono>
#include <expected>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/Windows/Window.h"

namespace ScriptableApps {

/// A running file manager.
struct FileManager {
  /// Its connection to the session bus, ":1.42"; empty if it has no name there.
  std::string connection = {};
  std::optional<pid_t> pid = {};

  bool operator==(const FileManager&) const = default;
};
using FileManagers = std::vector<FileManager>;

/// The windows on the X server, or why they are unknown.
using WindowsOnScreen = std::expected<DesktopSupport::WindowList, DesktopSupport::DesktopError>;

/// The file managers that have a name on the bus, each once. Starts none, and waits for each answer for `patience` at
/// most.
FileManagers fileManagersOn(const DesktopSupport::SessionBus& bus, std::chrono::milliseconds patience);

/// The file managers that show windows and are not among `onBus`, each once.
FileManagers otherFileManagers(const WindowsOnScreen& screen, const FileManagers& onBus);

/// Whether the file manager has a window. True if the windows are unknown.
bool mayShowWindows(const FileManager& fileManager, const WindowsOnScreen& screen);

/// The name of the file manager's program, such as "thunar".
std::string nameOf(const FileManager& fileManager);

}  // namespace ScriptableApps
