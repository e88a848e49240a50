#pragma once

#include <memory>

#include "Configs.h"
#include "Platform/Windows.h"

namespace RecentFiles {

/// The window in which the user configures the plug-in as a whole. What is changed there goes to the host by itself.
class ConfigureWindowController {
 public:
  explicit ConfigureWindowController(const std::shared_ptr<PluginConfigProvider>& provider);

  /// The window, not shown yet; null where there is no display to show one on.
  [[nodiscard]] Platform::Window* window() const { return window_.get(); }

 private:
  std::unique_ptr<Platform::Window> window_;
};

}  // namespace RecentFiles
