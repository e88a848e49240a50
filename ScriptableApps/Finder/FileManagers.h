#pragma once

#include <chrono>
#include <expected>
#include <string>
#include <vector>

#include "DesktopSupport/Bus/SessionBus.h"

namespace ScriptableApps {

/// What file managers have told.
struct OpenLocations {
  /// As URIs: each tab of each window. The windows are in the order in which they lie on the X server, the topmost
  /// first; those that it doesn't know come last, in the order told.
  std::vector<std::string> locations = {};
  /// A sentence for each file manager that runs and has not told.
  std::vector<std::string> problems = {};
};

/// Asks the file managers that run what they have open, through org.freedesktop.FileManager1. Several may run at once,
/// and none is started. One that is not on the session bus is known by its windows, and tells nothing. Fails if none
/// told: with `nameHasNoOwner` or `noServer` if none runs, with `notSupported` and a message of their names if they
/// don't tell such things, else with the failure: `timeout` if one took longer than `patience`.
std::expected<OpenLocations, DesktopSupport::BusError> openLocations(std::chrono::milliseconds patience);

}  // namespace ScriptableApps
