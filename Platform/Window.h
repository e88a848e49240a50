#pragma once

#include <string_view>

#include "Platform/NotificationCenter.h"

namespace Platform {

/// The name of the notification that a window's delegate is given.
inline constexpr std::string_view windowWillCloseNotification = "NSWindowWillCloseNotification";

/// The level of ordinary windows. Windows of a higher level are in front of those of a lower one (NSWindowLevel).
inline constexpr int normalWindowLevel = 0;
/// The level of palettes, which float above ordinary windows.
inline constexpr int floatingWindowLevel = 3;

/// What hangs on the life of a window (NSWindowDelegate).
class WindowDelegate {
 public:
  virtual ~WindowDelegate() = default;

  /// Called when the window is about to close; the notification's object is the window.
  virtual void windowWillClose(const Notification& notification) = 0;
};

/// A window of the application's own (NSWindow). It is closable; closed, it can be shown again. For the main thread
/// alone.
class Window {
 public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  /// Whom the window tells what happens to it; none at first. It must outlive the window or be taken away before.
  void setDelegate(WindowDelegate* delegate) { delegate_ = delegate; }
  /// The delegate that was set last; null where there is none.
  [[nodiscard]] WindowDelegate* delegate() const { return delegate_; }

  /// Puts the window on this level (setLevel:). A desktop that has no levels keeps every window whose level is above
  /// the normal one above ordinary windows, as far as it lets an application say so.
  virtual void setLevel(int level) = 0;
  /// The level that was set last; at first, the normal one.
  [[nodiscard]] virtual int level() const = 0;

  /// Shows the window in front of the others of its level and gives it the keyboard (makeKeyAndOrderFront:).
  virtual void makeKeyAndOrderFront() = 0;

  /// Tells the delegate and takes the window off the screen (close).
  virtual void close() = 0;

 protected:
  /// Tells the delegate, if there is one, that the window is about to close.
  void tellWillClose() {
    if (delegate_ != nullptr)
      delegate_->windowWillClose({windowWillCloseNotification, this});
  }

 private:
  WindowDelegate* delegate_ = nullptr;
};

}  // namespace Platform
