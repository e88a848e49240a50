#pragma once

#include "Linux/GTK/GTKHandles.h"
#include "Platform/Windows.h"

namespace Linux {

/// A window of the user's theme. Escape closes it as the window manager's close button does.
class GTKWindow : public Platform::Window {
 public:
  explicit GTKWindow(const Platform::WindowContent& content);

  void setLevel(int level) override;
  [[nodiscard]] int level() const override { return level_; }
  void makeKeyAndOrderFront() override;
  void close() override;

 private:
  static gboolean closeRequested(GtkWindow* window, gpointer self);

  WindowHandle window_;
  int level_ = Platform::normalWindowLevel;
};

}  // namespace Linux
