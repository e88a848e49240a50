#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "Platform/Windows.h"

namespace Linux {

/// An alert on screen. Destroying it dismisses it.
class AlertPanel {
 public:
  virtual ~AlertPanel() = default;

  /// Whether the user has dismissed it; it is off the screen then.
  [[nodiscard]] virtual bool isDismissed() const = 0;
};

/// What the module `deskloom-windows.so` offers. It works on GLib's default main context. For the main thread alone.
class WindowToolkit {
 public:
  virtual ~WindowToolkit() = default;

  /// Shows the alert in front of all other windows and returns. The alert must have a button.
  virtual std::unique_ptr<AlertPanel> showAlert(const Platform::Alert& alert) = 0;

  /// Makes a window with this content, and doesn't show it yet.
  virtual std::unique_ptr<Platform::Window> makeWindow(const Platform::WindowContent& content) = 0;
};

/// What the module needs to know about the application.
struct WindowToolkitOptions {
  /// The identifier of the application's desktop entry and icon.
  std::string applicationIdentifier;
  /// The application's name, the title of its alerts.
  std::string applicationName;
  /// The file with its picture; empty if it has none.
  std::filesystem::path icon;
};

/// The one function that the module exports. It yields the toolkit, which the caller owns, or null if no display can be
/// opened. A process may call it once.
using OpenWindowToolkit = WindowToolkit*(const WindowToolkitOptions& options);
inline constexpr const char* openWindowToolkitSymbol = "deskloomOpenWindowToolkit";

}  // namespace Linux
