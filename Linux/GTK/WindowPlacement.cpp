#include "Linux/GTK/WindowPlacement.h"

#include <gdk/x11/gdkx.h>

namespace Linux {

namespace {

constexpr const char* keptAbove = "deskloom-kept-above";

bool isOnX11(GtkWindow* window) {
  return GDK_IS_X11_DISPLAY(gtk_widget_get_display(GTK_WIDGET(window)));
}

GdkSurface* surfaceOf(GtkWindow* window) {
  return gtk_native_get_surface(GTK_NATIVE(window));
}

/// The window manager takes this request from a window that is on the screen only.
void requestState(GtkWindow* window) {
  constexpr long remove = 0;
  constexpr long add = 1;
  constexpr long fromApplication = 1;
  GdkDisplay* display = gtk_widget_get_display(GTK_WIDGET(window));
  Display* server = gdk_x11_display_get_xdisplay(display);
  XEvent event = {};
  event.xclient.type = ClientMessage;
  event.xclient.window = gdk_x11_surface_get_xid(surfaceOf(window));
  event.xclient.message_type = gdk_x11_get_xatom_by_name_for_display(display, "_NET_WM_STATE");
  event.xclient.format = 32;
  event.xclient.data.l[0] = g_object_get_data(G_OBJECT(window), keptAbove) != nullptr ? add : remove;
  event.xclient.data.l[1] = static_cast<long>(gdk_x11_get_xatom_by_name_for_display(display, "_NET_WM_STATE_ABOVE"));
  event.xclient.data.l[3] = fromApplication;
  XSendEvent(server, gdk_x11_display_get_xrootwindow(display), False, SubstructureRedirectMask | SubstructureNotifyMask,
             &event);
  // Where among the windows kept above a new one comes is left open.
  XRaiseWindow(server, gdk_x11_surface_get_xid(surfaceOf(window)));
}

}  // namespace

void keepAbove(GtkWindow* window, bool above) {
  if (!isOnX11(window))
    return;
  g_signal_handlers_disconnect_by_func(window, reinterpret_cast<gpointer>(&requestState), nullptr);
  g_object_set_data(G_OBJECT(window), keptAbove, above ? window : nullptr);
  if (above)
    g_signal_connect_after(window, "map", G_CALLBACK(&requestState), nullptr);
  if (gtk_widget_get_mapped(GTK_WIDGET(window)) != FALSE)
    requestState(window);
}

void orderFront(GtkWindow* window) {
  // A new window has the front anyway; asked for twice, the keyboard is at times left with nobody.
  if (gtk_widget_get_mapped(GTK_WIDGET(window)) == FALSE)
    return gtk_widget_set_visible(GTK_WIDGET(window), TRUE);
  // One that is there already comes to the front only for what the user has just done: that the host was told to run
  // this plug-in counts as such, and it is now.
  gtk_window_present_with_time(window, isOnX11(window) ? gdk_x11_get_server_time(surfaceOf(window)) : GDK_CURRENT_TIME);
}

}  // namespace Linux
