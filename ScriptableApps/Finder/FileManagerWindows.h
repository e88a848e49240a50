#pragma once

#include <chrono>
#include <expected>
#include <optional>
#include <string>
#include <vector>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/Windows/Window.h"
#include "ScriptableApps/Finder/RunningFileManagers.h"

namespace ScriptableApps {

/// A window of a file manager with the location of each of its tabs, as URIs. A file manager that does not report its
/// windows has one that stands for all of them.
struct FileManagerWindow {
  DesktopSupport::GTKWindowName name;
  std::vector<std::string> locations;
};
using FileManagerWindows = std::vector<FileManagerWindow>;

/// The windows that a file manager reports in its properties of org.freedesktop.FileManager1, a variant of type
/// "a{sv}". `nullopt` if it does not report what it shows.
std::optional<FileManagerWindows> reportedWindows(const FileManager& fileManager, GVariant* properties,
                                                  const WindowsOnScreen& screen);

/// What file managers have open.
struct OpenLocations {
  /// The URI of each tab of each window. The windows are in the order in which they are stacked on the X server, the
  /// topmost first, followed by those that the X server does not know, in the order reported.
  std::vector<std::string> locations = {};
  /// A sentence for each running file manager that did not report what it shows.
  std::vector<std::string> problems = {};
};

/// Asks all running file managers what they have open, through org.freedesktop.FileManager1. None is started. One that
/// is not on the session bus is known by its windows, and reports nothing.
///
/// Fails if none of them reports: with `nameHasNoOwner` or `noServer` if none is running; with `notSupported` and a
/// message that names them if they cannot report; otherwise with the failure, such as `timeout` if one took longer
/// than `patience`.
std::expected<OpenLocations, DesktopSupport::BusError> openLocations(std::chrono::milliseconds patience);

}  // namespace ScriptableApps
