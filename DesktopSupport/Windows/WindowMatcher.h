#pragma once

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The desktop entry of the application that `window` of `process` belongs to; null if it is unknown. The most reliable
/// evidence is tried first: the sandbox of the process, the window's application id, entries that claim the window's
/// class, entries with the name of the class, the environment that the process was started with, the systemd unit that
/// its launcher made for it, and last, entries that run its program.
const DesktopEntry* matchWindow(DesktopEntries& entries, const Window& window, const ProcessInfo& process);

}  // namespace DesktopSupport
