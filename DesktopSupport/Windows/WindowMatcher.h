#pragma once

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/System/ProcessInfo.h"
#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The desktop entry of the application that `window`, of the process `process`, belongs to; nullptr where none can be
/// told. What is most certain is tried first: the sandbox the process runs in, the application id on the window,
/// entries that name the window's class as theirs, entries called like the class, what the process was started with,
/// the unit that its launcher made for it, and at last entries that run its program.
const DesktopEntry* matchWindow(DesktopEntries& entries, const Window& window, const ProcessInfo& process);

}  // namespace DesktopSupport
