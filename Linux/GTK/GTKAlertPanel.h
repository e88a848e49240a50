#pragma once

#include "Linux/GTK/GTKHandles.h"
#include "Linux/WindowToolkit.h"

namespace Linux {

/// An alert in a window of its own. Every button dismisses it, and so do Escape and the window manager's close button;
/// Return presses the first. Screen readers read it out as an alert.
class GTKAlertPanel : public AlertPanel {
 public:
  /// Shows the alert of the application that is described.
  GTKAlertPanel(const Platform::Alert& alert, const WindowToolkitOptions& application);

  [[nodiscard]] bool isDismissed() const override { return isDismissed_; }

 private:
  GtkWidget* makeButtons(const Platform::Alert& alert);
  static gboolean dismiss(gpointer, gpointer panel);

  WindowHandle window_;
  bool isDismissed_ = false;
};

}  // namespace Linux
