#pragma once

#include <memory>
#include <vector>

#include "BrimlaceTextView/AboutWindowController.h"
#include "Platform/AppleEvents.h"
#include "Platform/Application.h"
#include "Platform/Windows.h"

namespace Gleanery {

/// Connects the runtime to what this application does: made by the application main routine, before launching finishes.
class AppDelegate : public Platform::ApplicationDelegate, public Platform::WindowDelegate {
 public:
  /// Begins a check for updates, installs the action handlers and becomes the handler of launch URLs.
  AppDelegate();
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;
  ~AppDelegate() override = default;

  void applicationDidFinishLaunching(const Platform::Notification& notification) override;

  /// The controllers of windows for the run action: always empty, as this application doesn't offer that action.
  [[nodiscard]] const std::vector<std::unique_ptr<Platform::WindowController>>& runControllers() const {
    return runControllers_;
  }

  /// Passes a URL event to the runtime; the reply is not used.
  void handleGetURLEvent(const Platform::AppleEvent& event, Platform::AppleEvent& replyEvent);

  /// Asks the application to terminate: the one window that has this delegate is the About window.
  void windowWillClose(const Platform::Notification& notification) override;

 private:
  BrimlaceTextView::AboutWindowController& aboutWindowController();
  void showAboutWindow();

  std::unique_ptr<BrimlaceTextView::AboutWindowController> aboutWindowController_;
  std::vector<std::unique_ptr<Platform::WindowController>> runControllers_;
  /// Lets callbacks that may outlive the delegate see whether it is still there.
  std::shared_ptr<AppDelegate> self_{this, [](AppDelegate*) {}};
};

}  // namespace Gleanery
