#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "Platform/Alerts.h"
#include "Platform/Windows.h"

namespace Linux {

/// An alert on the screen; it goes with its end.
class AlertPanel {
 public:
  virtual ~AlertPanel() = default;

  /// Whether the user has dismissed it, and it is off the screen.
  [[nodiscard]] virtual bool isDismissed() const = 0;
};

/// What can be shown on the screen: the face of the module that the user interface is in. It works on GLib's default
/// main context and is for the main thread alone.
class WindowToolkit {
 public:
  virtual ~WindowToolkit() = default;

  /// Shows the alert in front of all else and returns. There must be a button.
  virtual std::unique_ptr<AlertPanel> showAlert(const Platform::Alert& alert) = 0;

  /// A window with this content, not shown yet.
  virtual std::unique_ptr<Platform::Window> makeWindow(const Platform::WindowContent& content) = 0;
};

/// What the application tells the module of itself.
struct WindowToolkitOptions {
  /// The identifier of the application's desktop entry and icon.
  std::string applicationIdentifier;
  /// The application's name, the title of its alerts.
  std::string applicationName;
  /// The file of its picture; empty where it has none.
  std::filesystem::path icon;
};

/// The module's one entry: yields the toolkit, which the caller owns, or null if no display can be opened. To be
/// called once.
using OpenWindowToolkit = WindowToolkit*(const WindowToolkitOptions& options);
inline constexpr const char* openWindowToolkitSymbol = "deskloomOpenWindowToolkit";

}  // namespace Linux
