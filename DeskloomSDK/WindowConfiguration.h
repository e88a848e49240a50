#pragma once

#include "Platform/Windows.h"

namespace DeskloomSDK {

/// How a plug-in's own windows are presented.
class WindowConfiguration {
 public:
  WindowConfiguration() = default;
  WindowConfiguration(const WindowConfiguration&) = delete;
  WindowConfiguration& operator=(const WindowConfiguration&) = delete;
  ~WindowConfiguration() = default;

  /// Puts the window one level above floating ones, so that it stays in front of the host and other applications.
  /// Nothing else about it changes.
  static void configure(Platform::Window& window);
};

}  // namespace DeskloomSDK
