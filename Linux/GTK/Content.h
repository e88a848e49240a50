#pragma once

#include <gtk/gtk.h>

#include "Platform/WindowContent.h"

namespace Linux::GTK {

/// Makes a box with a widget for each element of a window's content, from top to bottom. A number or a choice is a row:
/// its label, which screen readers read out with the control, and the control beside it.
GtkWidget* makeContentBox(const Platform::WindowContent& content);

}  // namespace Linux::GTK
