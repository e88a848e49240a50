#pragma once

#include <gtk/gtk.h>

#include "Platform/WindowContent.h"

namespace Platform::Linux {

/// Widgets for the elements of a window's content, from top to bottom in one box.
GtkWidget* makeContentBox(const WindowContent& content);

/// Makes Escape close the window as the window manager's close button does.
void closeOnEscape(GtkWindow* window);

}  // namespace Platform::Linux
