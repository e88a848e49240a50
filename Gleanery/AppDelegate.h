#pragma once

#include <memory>
#include <vector>

#include "BrimlaceTextView/AboutWindowController.h"
#include "DeskloomSDK/PluginDelegate.h"
#include "Platform/Windows.h"

namespace Gleanery {

/// Connects the runtime to this application. The application main routine makes it before launching finishes.
class AppDelegate : public DeskloomSDK::PluginDelegate, public Platform::WindowDelegate {
 public:
  /// Begins a check for updates, sets the action handlers and becomes the handler of launch URLs.
  AppDelegate();

  /// The window controllers of run actions: always empty, since this application has no run action.
  [[nodiscard]] const std::vector<std::unique_ptr<Platform::WindowController>>& runControllers() const {
    return runControllers_;
  }

  /// Asks the application to terminate. Only the About window has this delegate.
  void windowWillClose(const Platform::Notification& notification) override;

 private:
  BrimlaceTextView::AboutWindowController& aboutWindowController();
  void showAboutWindow();

  std::unique_ptr<BrimlaceTextView::AboutWindowController> aboutWindowController_;
  std::vector<std::unique_ptr<Platform::WindowController>> runControllers_;
  Platform::Lifetime lifetime_;
};

}  // namespace Gleanery
