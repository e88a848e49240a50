#include "Linux/GTK/Windows.h"

#include "DesktopSupport/System/DisplayableText.h"
#include "Linux/GTK/Content.h"
#include "Linux/GTK/Placement.h"

namespace Linux::GTK {

namespace {

/// What a handler of "close-request" returns to keep the toolkit from destroying the window.
constexpr gboolean isHandled = TRUE;

/// Takes a toplevel window that was just made.
WindowHandle ownedWindow(GtkWidget* window) {
  return WindowHandle(GTK_WINDOW(g_object_ref(window)));
}

// The texts may come from another program, such as the host.
Platform::WindowContent contentOf(const Platform::Alert& alert, const WindowToolkitOptions& application) {
  Platform::WindowContent content{.title = application.applicationName};
  if (!application.icon.empty())
    content.elements.emplace_back(
        Platform::Picture{.file = application.icon, .description = application.applicationName});
  content.elements.emplace_back(Platform::Heading{DesktopSupport::printableLines(alert.messageText)});
  if (!alert.informativeText.empty())
    content.elements.emplace_back(Platform::Text{DesktopSupport::printableLines(alert.informativeText)});
  return content;
}

GtkWidget* makeAlertWindow() {
  return GTK_WIDGET(g_object_new(GTK_TYPE_WINDOW, "accessible-role", GTK_ACCESSIBLE_ROLE_ALERT_DIALOG, "modal", TRUE,
                                 "resizable", FALSE, nullptr));
}

}  // namespace

Window::Window(const Platform::WindowContent& content) : window_(ownedWindow(gtk_window_new())) {
  gtk_window_set_title(window_.get(), content.title.c_str());
  gtk_window_set_resizable(window_.get(), FALSE);
  GtkWidget* box = makeContentBox(content);
  gtk_window_set_child(window_.get(), box);
  giveInitialFocus(window_.get(), box);
  closeOnEscape(window_.get());
  g_signal_connect(window_.get(), "close-request", G_CALLBACK(&Window::closeRequested), this);
}

void Window::setLevel(int level) {
  level_ = level;
  keepAbove(window_.get(), level > Platform::normalWindowLevel);
}

void Window::makeKeyAndOrderFront() {
  orderFront(window_.get());
}

void Window::close() {
  // A number that is still being typed counts when its field loses the keyboard.
  gtk_window_set_focus(window_.get(), nullptr);
  tellWillClose();
  gtk_widget_set_visible(GTK_WIDGET(window_.get()), FALSE);
}

gboolean Window::closeRequested(GtkWindow* /*window*/, gpointer self) {
  static_cast<Window*>(self)->close();
  return isHandled;
}

AlertPanel::AlertPanel(const Platform::Alert& alert, const WindowToolkitOptions& application)
    : window_(ownedWindow(makeAlertWindow())) {
  gtk_window_set_title(window_.get(), application.applicationName.c_str());
  GtkWidget* box = makeContentBox(contentOf(alert, application));
  GtkWidget* buttons = makeButtons(alert);
  gtk_box_append(GTK_BOX(box), buttons);
  gtk_window_set_child(window_.get(), box);
  gtk_window_set_default_widget(window_.get(), gtk_widget_get_first_child(buttons));
  gtk_window_set_focus(window_.get(), gtk_widget_get_first_child(buttons));
  closeOnEscape(window_.get());
  g_signal_connect(window_.get(), "close-request", G_CALLBACK(&AlertPanel::dismiss), this);
  keepAbove(window_.get(), true);
  orderFront(window_.get());
}

GtkWidget* AlertPanel::makeButtons(const Platform::Alert& alert) {
  constexpr int spacing = 8;
  GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, spacing);
  gtk_box_set_homogeneous(GTK_BOX(row), TRUE);
  for (const std::string& title : alert.buttons) {
    GtkWidget* button = gtk_button_new_with_label(title.c_str());
    gtk_widget_set_hexpand(button, TRUE);
    g_signal_connect(button, "clicked", G_CALLBACK(&AlertPanel::dismiss), this);
    gtk_box_append(GTK_BOX(row), button);
  }
  return row;
}

gboolean AlertPanel::dismiss(gpointer /*sender*/, gpointer panel) {
  auto* self = static_cast<AlertPanel*>(panel);
  self->isDismissed_ = true;
  gtk_widget_set_visible(GTK_WIDGET(self->window_.get()), FALSE);
  return isHandled;
}

}  // namespace Linux::GTK
