// gtk-windows APPLICATION_ID TITLE...: shows a window for each title, under Wayland or X as GDK_BACKEND says. Prints a
// line for each window that the compositor has put on screen. Ends when its windows have been closed.

#include <cstdio>

#include <gtk/gtk.h>

namespace {

void show(const char* title) {
  GtkWidget* window = gtk_window_new();
  gtk_window_set_title(GTK_WINDOW(window), title);
  gtk_window_set_default_size(GTK_WINDOW(window), 300, 200);
  gtk_widget_realize(window);
  const auto print = +[](GdkSurface*, GdkMonitor*, gpointer) {
    std::puts("on screen");
    std::fflush(stdout);
  };
  g_signal_connect(gtk_native_get_surface(GTK_NATIVE(window)), "enter-monitor", G_CALLBACK(print), nullptr);
  gtk_window_present(GTK_WINDOW(window));
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2)
    return 2;
  // GTK tells this name to the compositor, and it is the class of X windows.
  g_set_prgname(arguments[1]);
  gtk_init();
  for (int index = 2; index < count; ++index)
    show(arguments[index]);
  while (g_list_model_get_n_items(gtk_window_get_toplevels()) > 0)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
}
