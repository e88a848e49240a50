#pragma once

#include <set>

#include "Platform/Windows.h"

namespace RecentFiles {

/// Keeps the application running while a window is open.
class OpenWindows : public Platform::WindowDelegate {
 public:
  /// Shows the window, or brings it to the front, above the windows of other applications.
  void show(Platform::Window& window);

  /// Asks the application to terminate unless a window is open.
  void terminateIfNone() const;

  /// Asks the application to terminate if no other window is open.
  void windowWillClose(const Platform::Notification& notification) override;

 private:
  std::set<const void*> windows_;
};

}  // namespace RecentFiles
