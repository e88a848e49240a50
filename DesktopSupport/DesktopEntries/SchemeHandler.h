#pragma once

#include <string_view>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"

namespace DesktopSupport {

/// The entry of the application that opens URLs of `scheme`: the user's or the desktop's choice in the mimeapps.list
/// files of the configuration and data folders, or else the first application that offers itself, in these files or in
/// the folders' mimeinfo.cache. Null if there is none. Applications that are not installed do not count.
///
/// GIO has the same answer, but watches all of these folders from then on, and a process that watches folders takes
/// longer to end than all the rest of a launch.
const DesktopEntry* handlerOfScheme(std::string_view scheme, DesktopEntries& entries);

}  // namespace DesktopSupport
