#pragma once

#include <memory>

#include <gtk/gtk.h>

#include "Linux/WindowToolkit.h"
#include "Platform/Windows.h"

namespace Linux::GTK {

/// Destroys a toplevel window. If the toolkit has destroyed it already, only lets go of it.
struct DestroyWindow {
  void operator()(GtkWindow* window) const {
    gtk_window_destroy(window);
    g_object_unref(window);
  }
};
using WindowHandle = std::unique_ptr<GtkWindow, DestroyWindow>;

/// A window in the user's theme. Escape closes it as the window manager's close button does.
class Window : public Platform::Window {
 public:
  explicit Window(const Platform::WindowContent& content);

  void setLevel(int level) override;
  [[nodiscard]] int level() const override { return level_; }
  void makeKeyAndOrderFront() override;
  void close() override;

 private:
  static gboolean closeRequested(GtkWindow* window, gpointer self);

  WindowHandle window_;
  int level_ = Platform::normalWindowLevel;
};

/// An alert in a window of its own. Every button dismisses it, and so do Escape and the window manager's close button;
/// Return presses the first button. Screen readers read it out as an alert.
class AlertPanel : public Linux::AlertPanel {
 public:
  /// Shows the alert of this application.
  AlertPanel(const Platform::Alert& alert, const WindowToolkitOptions& application);

  [[nodiscard]] bool isDismissed() const override { return isDismissed_; }

 private:
  GtkWidget* makeButtons(const Platform::Alert& alert);
  static gboolean dismiss(gpointer sender, gpointer panel);

  WindowHandle window_;
  bool isDismissed_ = false;
};

}  // namespace Linux::GTK
