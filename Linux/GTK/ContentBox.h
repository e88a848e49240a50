#pragma once

#include <gtk/gtk.h>

#include "Platform/WindowContent.h"

namespace Linux {

/// Widgets for the elements of a window's content, from top to bottom in one box.
GtkWidget* makeContentBox(const Platform::WindowContent& content);

/// Gives the keyboard to the first control in the window's box, or where there is none to the box itself; else its
/// first text would have it, with a cursor in it.
void giveInitialFocus(GtkWindow* window, GtkWidget* box);

/// Makes Escape close the window as the window manager's close button does.
void closeOnEscape(GtkWindow* window);

}  // namespace Linux
