#pragma once

#include <memory>
#include <utility>

#include "Platform/Window.h"

namespace Platform {

/// The owner of a window (NSWindowController).
class WindowController {
 public:
  /// Takes the window, which may be null: `Windows::makeWindow` yields null if there is no display.
  explicit WindowController(std::unique_ptr<Window> window) : window_(std::move(window)) {}
  WindowController(const WindowController&) = delete;
  WindowController& operator=(const WindowController&) = delete;
  virtual ~WindowController() = default;

  /// The window; null if there is no display to show one on.
  [[nodiscard]] Window* window() const { return window_.get(); }

 private:
  std::unique_ptr<Window> window_;
};

}  // namespace Platform
