#pragma once

#include <gtk/gtk.h>

namespace Linux::GTK {

/// Asks the window manager to keep the window above ordinary ones, or to stop that, now and whenever it is shown: on
/// X11 by _NET_WM_STATE_ABOVE. On Wayland the compositor alone decides, and this does nothing.
void keepAbove(GtkWindow* window, bool above);

/// Shows the window, or brings it to the front of its level, and gives it the keyboard.
void orderFront(GtkWindow* window);

/// Gives the keyboard to the first control in the window's box, or to the box itself if there is none. Otherwise the
/// first text would get it and show a cursor.
void giveInitialFocus(GtkWindow* window, GtkWidget* box);

/// Makes Escape close the window as the window manager's close button does.
void closeOnEscape(GtkWindow* window);

}  // namespace Linux::GTK
