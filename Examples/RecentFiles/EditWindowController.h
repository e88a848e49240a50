#pragma once

#include <memory>

#include "Configs.h"
#include "Platform/Windows.h"

namespace RecentFiles {

/// The window in which the user edits one action. What is changed there goes to the host by itself.
class EditWindowController {
 public:
  explicit EditWindowController(const std::shared_ptr<ActionConfigProvider>& provider);

  /// The window, not shown yet; null where there is no display to show one on.
  [[nodiscard]] Platform::Window* window() const { return window_.get(); }

 private:
  std::unique_ptr<Platform::Window> window_;
};

}  // namespace RecentFiles
