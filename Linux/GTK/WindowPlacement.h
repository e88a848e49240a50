#pragma once

#include <gtk/gtk.h>

namespace Linux {

/// Asks the window manager to keep the window above ordinary ones, or not to, now and whenever it is shown: on X11 by
/// _NET_WM_STATE_ABOVE. On Wayland no program may ask for it, and where the window is, is the compositor's choice.
void keepAbove(GtkWindow* window, bool above);

/// Shows the window, or brings it to the front of its level, with the keyboard.
void orderFront(GtkWindow* window);

}  // namespace Linux
