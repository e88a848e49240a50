#pragma once

#include "Linux/WindowToolkit.h"

namespace Linux {

/// The toolkit on GTK, in the user's theme and language, on X11 and Wayland.
class GTKToolkit : public WindowToolkit {
 public:
  /// The toolkit on the display that the environment names; null where it cannot be opened.
  static WindowToolkit* open(const WindowToolkitOptions& options);

  std::unique_ptr<AlertPanel> showAlert(const Platform::Alert& alert) override;
  std::unique_ptr<Platform::Window> makeWindow(const Platform::WindowContent& content) override;

 private:
  explicit GTKToolkit(WindowToolkitOptions application);

  WindowToolkitOptions application_;
};

}  // namespace Linux
