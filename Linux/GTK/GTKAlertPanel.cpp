#include "Linux/GTK/GTKAlertPanel.h"

#include "DesktopSupport/System/DisplayableText.h"
#include "Linux/GTK/ContentBox.h"
#include "Linux/GTK/WindowPlacement.h"

namespace Linux {

namespace {

// The texts may be of somebody else, such as the host.
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

GTKAlertPanel::GTKAlertPanel(const Platform::Alert& alert, const WindowToolkitOptions& application)
    : window_(ownedWindow(makeAlertWindow())) {
  gtk_window_set_title(window_.get(), application.applicationName.c_str());
  GtkWidget* box = makeContentBox(contentOf(alert, application));
  GtkWidget* buttons = makeButtons(alert);
  gtk_box_append(GTK_BOX(box), buttons);
  gtk_window_set_child(window_.get(), box);
  gtk_window_set_default_widget(window_.get(), gtk_widget_get_first_child(buttons));
  gtk_window_set_focus(window_.get(), gtk_widget_get_first_child(buttons));
  closeOnEscape(window_.get());
  g_signal_connect(window_.get(), "close-request", G_CALLBACK(&GTKAlertPanel::dismiss), this);
  keepAbove(window_.get(), true);
  orderFront(window_.get());
}

GtkWidget* GTKAlertPanel::makeButtons(const Platform::Alert& alert) {
  constexpr int spacing = 8;
  GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, spacing);
  gtk_box_set_homogeneous(GTK_BOX(row), TRUE);
  for (const std::string& title : alert.buttons) {
    GtkWidget* button = gtk_button_new_with_label(title.c_str());
    gtk_widget_set_hexpand(button, TRUE);
    g_signal_connect(button, "clicked", G_CALLBACK(&GTKAlertPanel::dismiss), this);
    gtk_box_append(GTK_BOX(row), button);
  }
  return row;
}

gboolean GTKAlertPanel::dismiss(gpointer /*sender*/, gpointer panel) {
  auto* self = static_cast<GTKAlertPanel*>(panel);
  self->isDismissed_ = true;
  gtk_widget_set_visible(GTK_WIDGET(self->window_.get()), FALSE);
  return isHandled;
}

}  // namespace Linux
