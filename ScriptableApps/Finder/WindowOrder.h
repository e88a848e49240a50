#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "DesktopSupport/Windows/Window.h"
#include "ScriptableApps/Finder/FolderWay.h"

namespace ScriptableApps {

/// The windows of the list, the topmost first. If their order is not known, the active window is followed by the others
/// in the order of the list.
std::vector<DesktopSupport::Window> topmostFirst(const DesktopSupport::WindowList& screen);

/// Finds out which window on the screen each of the reported windows is, and sets its `id`: the only one, or the one
/// whose title names one of its folders, if there is just one such pair. For the others, the names of GTK's windows
/// give the order, if the desktop knows these.
void placeOnScreen(FileManagerWindows& reported, const FileManager& fileManager);

/// Sorts the windows, the topmost first. Those that have no place on the screen keep their order, after the others.
void sortTopmostFirst(FileManagerWindows& windows, const WindowsOnScreen& screen);

}  // namespace ScriptableApps
