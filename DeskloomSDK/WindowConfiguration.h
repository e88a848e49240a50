#pragma once

#include "Platform/Windows.h"

namespace DeskloomSDK {

/// Sets up a plug-in's own windows.
class WindowConfiguration {
 public:
  WindowConfiguration() = default;
  WindowConfiguration(const WindowConfiguration&) = delete;
  WindowConfiguration& operator=(const WindowConfiguration&) = delete;
  ~WindowConfiguration() = default;

  /// Puts the window one level above floating windows, so that it stays in front of the host and other applications.
  /// Changes nothing else.
  static void configure(Platform::Window& window);
};

}  // namespace DeskloomSDK
