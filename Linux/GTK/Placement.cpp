#include "Linux/GTK/Placement.h"

#include <gdk/x11/gdkx.h>

namespace Linux::GTK {

namespace {

constexpr const char* keptAbove = "deskloom-kept-above";

bool isOnX11(GtkWindow* window) {
  return GDK_IS_X11_DISPLAY(gtk_widget_get_display(GTK_WIDGET(window)));
}

GdkSurface* surfaceOf(GtkWindow* window) {
  return gtk_native_get_surface(GTK_NATIVE(window));
}

/// Asks the window manager for the state; it ignores a window that is not on screen.
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
  // The order of several windows that are kept above is not defined.
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
  // A window that appears comes to the front by itself. If it asked for that too, no window might get the keyboard.
  if (gtk_widget_get_mapped(GTK_WIDGET(window)) == FALSE)
    return gtk_widget_set_visible(GTK_WIDGET(window), TRUE);
  // The window manager brings a visible window to the front only if the user has just done something. The user has just
  // had the host run this plug-in, so the current time is right.
  gtk_window_present_with_time(window, isOnX11(window) ? gdk_x11_get_server_time(surfaceOf(window)) : GDK_CURRENT_TIME);
}

void giveInitialFocus(GtkWindow* window, GtkWidget* box) {
  for (GtkWidget* child = gtk_widget_get_first_child(box); child != nullptr; child = gtk_widget_get_next_sibling(child))
    if (GTK_IS_BOX(child) && gtk_widget_grab_focus(gtk_widget_get_last_child(child)) != FALSE)
      return;
  gtk_widget_set_focusable(box, TRUE);
  gtk_window_set_focus(window, box);
}

void closeOnEscape(GtkWindow* window) {
  GtkEventController* shortcuts = gtk_shortcut_controller_new();
  gtk_shortcut_controller_add_shortcut(GTK_SHORTCUT_CONTROLLER(shortcuts),
                                       gtk_shortcut_new(gtk_keyval_trigger_new(GDK_KEY_Escape, GdkModifierType{}),
                                                        gtk_named_action_new("window.close")));
  gtk_widget_add_controller(GTK_WIDGET(window), shortcuts);
}

}  // namespace Linux::GTK
