#pragma once

#include <string_view>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"

namespace DesktopSupport {

/// The entry of the application that opens URLs of `scheme`: the user's or the desktop's choice in the mimeapps.list
/// files of the configuration and data folders, else the first application that offers itself, in these files or in the
/// folders' mimeinfo.cache. nullptr where there is none. An application that is not installed does not count.
///
/// GIO would tell the same, but watches every one of these folders from then on, and the end of a process that watches
/// folders takes longer than all the rest of a launch.
const DesktopEntry* handlerOfScheme(std::string_view scheme, DesktopEntries& entries);

}  // namespace DesktopSupport
