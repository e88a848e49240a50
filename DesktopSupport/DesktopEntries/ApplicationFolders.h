#pragma once

#include <filesystem>
#include <vector>

namespace DesktopSupport {

/// The folders in which desktop entries are looked for, the first one first: "applications" in $XDG_DATA_HOME and in
/// each of $XDG_DATA_DIRS, then in what Flatpak and Snap export, which a program that was not started from the desktop
/// does not find in $XDG_DATA_DIRS. Relative folders in these variables do not count.
std::vector<std::filesystem::path> applicationFolders();

}  // namespace DesktopSupport
