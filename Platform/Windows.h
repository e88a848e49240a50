#pragma once

#include <memory>

#include "Platform/Window.h"
#include "Platform/WindowContent.h"

namespace Platform {

/// Makes the application's windows (NSWindowController with its interface file).
class Windows {
 public:
  virtual ~Windows() = default;

  /// A window with this content, not shown yet. Null where there is no display to show one on, which is logged.
  virtual std::unique_ptr<Window> makeWindow(const WindowContent& content) = 0;
};

}  // namespace Platform
