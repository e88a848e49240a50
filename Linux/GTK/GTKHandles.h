#pragma once

#include <gtk/gtk.h>

#include "DesktopSupport/System/GLibHandles.h"

namespace Linux {

/// Owns a toplevel window: destroys it at the end of its scope. One that the toolkit has destroyed meanwhile is only
/// let go of.
struct DestroyWindow {
  void operator()(GtkWindow* window) const {
    gtk_window_destroy(window);
    g_object_unref(window);
  }
};
using WindowHandle = std::unique_ptr<GtkWindow, DestroyWindow>;

/// What a handler of "close-request" yields that has seen to it: else the toolkit would destroy the window.
inline constexpr gboolean isHandled = TRUE;

/// Takes a toplevel window that was just made.
inline WindowHandle ownedWindow(GtkWidget* window) {
  return WindowHandle(GTK_WINDOW(g_object_ref(window)));
}

}  // namespace Linux
