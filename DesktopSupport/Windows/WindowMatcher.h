#pragma once

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The desktop entry of the application that `window` of `process` belongs to; null if it is unknown.
///
/// A program in a sandbox has one of the sandbox's entries, preferably one that claims the window. An AppImage has the
/// entry that runs its file, or none. For any other program the most reliable evidence is tried first: the window's
/// application id, entries that claim the window's class, entries with the name of the class, the environment that the
/// process was started with, the systemd unit that its launcher made for it, entries that run its program, and last,
/// entries that go by another name of the window. An entry of a sandbox is not taken for a program outside of it.
const DesktopEntry* matchWindow(DesktopEntries& entries, const Window& window, const ProcessInfo& process);

}  // namespace DesktopSupport
