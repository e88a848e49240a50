#include "Gleanery/AppDelegate.h"

#include <optional>
#include <string>

#include "DeskloomSDK/WindowConfiguration.h"
#include "Gleanery/App.h"
#include "Gleanery/RunCommandActionController.h"
#include "Gleanery/UpdateController.h"
#include "Platform/Error.h"
#include "Platform/Services.h"

namespace Gleanery {

using BrimlaceTextView::AboutWindowController;

AppDelegate::AppDelegate() {
  UpdateController::shared().updater.checkForUpdatesInBackground();

  auto& actionController = App::shared().deskloomPlugin.actionController;
  actionController.onRunCommand = [](const std::optional<std::string>& data) {
    RunCommandActionController().run(data);
  };
  actionController.onConfigure = lifetime_.guarded([this] { showAboutWindow(); });
  connect(App::shared().deskloomPlugin);
}

void AppDelegate::windowWillClose(const Platform::Notification& /*notification*/) {
  Platform::sharedApplication().terminate();
}

void AppDelegate::showAboutWindow() {
  Platform::Window* window = aboutWindowController().window();
  window->setDelegate(this);
  window->makeKeyAndOrderFront();
}

AboutWindowController& AppDelegate::aboutWindowController() {
  if (!aboutWindowController_) {
    auto controller = AboutWindowController::createWithWindow(std::nullopt, std::nullopt);
    if (controller->window() == nullptr)
      Platform::fatalError("The About window could not be made.");
    DeskloomSDK::WindowConfiguration::configure(*controller->window());
    aboutWindowController_ = std::move(controller);
  }
  return *aboutWindowController_;
}

}  // namespace Gleanery
