#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Error.h"
#include "Platform/NotificationCenter.h"
#include "Platform/WindowContent.h"

namespace Platform {

/// The name of the notification that a window's delegate receives.
inline constexpr std::string_view windowWillCloseNotification = "NSWindowWillCloseNotification";

/// The level of ordinary windows. Windows of a higher level are in front of those of a lower one (NSWindowLevel).
inline constexpr int normalWindowLevel = 0;
/// The level of palettes, which float above ordinary windows.
inline constexpr int floatingWindowLevel = 3;

/// What the application does in the course of a window's life (NSWindowDelegate).
class WindowDelegate {
 public:
  virtual ~WindowDelegate() = default;

  /// Called when the window is about to close. The notification's object is the window.
  virtual void windowWillClose(const Notification& notification) = 0;
};

/// A window of the application's own (NSWindow). The user can close it; a closed window can be shown again. For the
/// main thread alone.
class Window {
 public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  /// Sets the delegate; at first there is none. The delegate must outlive the window, or be replaced before it ends.
  void setDelegate(WindowDelegate* delegate) { delegate_ = delegate; }
  /// The delegate that was set last; null if there is none.
  [[nodiscard]] WindowDelegate* delegate() const { return delegate_; }

  /// Puts the window on this level (setLevel:). A desktop that has no levels keeps every window whose level is higher
  /// than the normal one above ordinary windows, if it lets applications do that.
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

/// Makes the application's windows (NSWindowController with its interface file).
class Windows {
 public:
  virtual ~Windows() = default;

  /// A window with this content, not shown yet. Null if there is no display to show one on; the log then says so.
  virtual std::unique_ptr<Window> makeWindow(const WindowContent& content) = 0;
};

/// A message to the user (NSAlert).
struct Alert {
  /// What has happened, in a sentence.
  std::string messageText;
  /// More about it, or what to do; may be empty.
  std::string informativeText = {};
  /// The titles of the buttons. If there are none, the platform's default button is shown.
  std::vector<std::string> buttons = {};

  /// The alert that reports an error (alertWithError:), with its localised description as the message.
  static Alert withError(const Error& error) { return {.messageText = error.localizedDescription()}; }
};

/// Shows alerts.
class Alerts {
 public:
  virtual ~Alerts() = default;

  /// Shows the alert and waits until the user dismisses it (runModal) or the application is asked to terminate. While
  /// the application terminates, no alert is shown.
  virtual void runModal(const Alert& alert) = 0;
};

}  // namespace Platform
