#pragma once

#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// Whether the X server may know more about the windows in a compositor's list: some have no process, or are missing.
bool needsX11Windows(const WindowList& list);

/// Joins a compositor's list with that of its X server. Windows of X11 programs are in both, and each is listed once:
/// the two belong together if they have the same process or, if one has none, the same class, and preferably the same
/// title. The X server tells more about the window, and the compositor about its state and order. A window that only
/// the X server lists is added if the compositor's list is incomplete.
void addX11Windows(WindowList& list, const WindowList& x11);

}  // namespace DesktopSupport
