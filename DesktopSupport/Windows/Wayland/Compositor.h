#pragma once

#include <optional>
#include <string>

#include "DesktopSupport/System/FileDescriptor.h"
#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

/// The Wayland compositor whose socket WAYLAND_DISPLAY names, or else "wayland-0" in the user's runtime folder, as for
/// every program. What several sources need of it is asked for once.
class Compositor {
 public:
  /// Whether a compositor takes connections at the socket.
  [[nodiscard]] bool isRunning();

  /// Why there is none although WAYLAND_DISPLAY names one.
  [[nodiscard]] const std::optional<std::string>& problem();

  /// The name of its program, such as "weston".
  [[nodiscard]] std::string name();

 private:
  void connect();

  bool hasConnected_ = false;
  std::optional<FileDescriptor> socket_;
  std::optional<std::string> problem_;
};

}  // namespace DesktopSupport
