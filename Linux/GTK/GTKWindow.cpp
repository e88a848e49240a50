#include "Linux/GTK/GTKWindow.h"

#include "Linux/GTK/ContentBox.h"
#include "Linux/GTK/WindowPlacement.h"

namespace Linux {

GTKWindow::GTKWindow(const Platform::WindowContent& content) : window_(ownedWindow(gtk_window_new())) {
  gtk_window_set_title(window_.get(), content.title.c_str());
  gtk_window_set_resizable(window_.get(), FALSE);
  GtkWidget* box = makeContentBox(content);
  gtk_window_set_child(window_.get(), box);
  giveInitialFocus(window_.get(), box);
  closeOnEscape(window_.get());
  g_signal_connect(window_.get(), "close-request", G_CALLBACK(&GTKWindow::closeRequested), this);
}

void GTKWindow::setLevel(int level) {
  level_ = level;
  keepAbove(window_.get(), level > Platform::normalWindowLevel);
}

void GTKWindow::makeKeyAndOrderFront() {
  orderFront(window_.get());
}

void GTKWindow::close() {
  // A number that is still being typed counts once it has lost the keyboard.
  gtk_window_set_focus(window_.get(), nullptr);
  tellWillClose();
  gtk_widget_set_visible(GTK_WIDGET(window_.get()), FALSE);
}

gboolean GTKWindow::closeRequested(GtkWindow* /*window*/, gpointer self) {
  static_cast<GTKWindow*>(self)->close();
  return isHandled;
}

}  // namespace Linux
