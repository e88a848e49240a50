#pragma once

#include <chrono>
#include <expected>
#include <string>
#include <vector>

#include "DesktopSupport/Bus/SessionBus.h"

namespace ScriptableApps {

/// What file managers have open.
struct OpenLocations {
  /// The URI of each tab of each window, as far as it is known. The windows are in the order in which they are stacked
  /// on the screen, the topmost first, followed by those whose place is not known.
  std::vector<std::string> locations = {};
  /// A sentence for each running file manager of which not all windows' folders are known.
  std::vector<std::string> problems = {};
};

/// Finds out what all running file managers have open, each in the first of several ways that tells. None is started.
/// A search for the paths of folders that they watch takes `searchTime` at most.
///
/// Fails if nothing is known of any of them: with `nameHasNoOwner` or `noServer` if none is running; with
/// `notSupported` and a message that names them if they do not tell; otherwise with the failure, such as `timeout` if
/// one took longer than `patience`.
std::expected<OpenLocations, DesktopSupport::BusError> openLocations(std::chrono::milliseconds patience,
                                                                     std::chrono::milliseconds searchTime);

}  // namespace ScriptableApps
