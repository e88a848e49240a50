#pragma once

#include <optional>
#include <string>
#include <vector>

#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/Windows/Window.h"
#include "ScriptableApps/Finder/RunningFileManagers.h"

namespace ScriptableApps {

/// A window of a file manager with the location of each of its tabs, as URIs. For a file manager that tells no windows,
/// all of its locations.
struct ShownWindow {
  DesktopSupport::GTKWindowName name;
  std::vector<std::string> locations;
};
using ShownWindows = std::vector<ShownWindow>;

/// The windows that a file manager tells with its properties of org.freedesktop.FileManager1, of type "a{sv}". Null if
/// it doesn't tell.
std::optional<ShownWindows> shownWindows(const FileManager& fileManager, GVariant* properties,
                                         const WindowsOnScreen& screen);

}  // namespace ScriptableApps
