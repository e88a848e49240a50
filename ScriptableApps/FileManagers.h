#pragma once

#include <chrono>
#include <expected>
#include <string>
#include <vector>

#include "DesktopSupport/SessionBus.h"

namespace ScriptableApps {

/// The locations that the file managers on the session bus say they have open, as URIs: each tab of each window. The
/// windows are in the order in which they lie on the X server, the topmost first; those that it doesn't know come last,
/// in the order told. A file manager is one that tells this through org.freedesktop.FileManager1; several may run at
/// once, and none is started. One that does not tell, or fails to, is left out as long as another one does. Fails with
/// `nameHasNoOwner` where none runs that tells; where none told because of a failure, with that: `timeout` where one
/// took longer than `patience`.
std::expected<std::vector<std::string>, DesktopSupport::BusError> openLocations(std::chrono::milliseconds patience);

}  // namespace ScriptableApps
