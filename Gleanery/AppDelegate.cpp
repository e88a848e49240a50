#include "Gleanery/AppDelegate.h"

#include <optional>
#include <string>

#include "Gleanery/App.h"
#include "Gleanery/RunCommandActionController.h"
#include "Platform/Services.h"

namespace Gleanery {

AppDelegate::AppDelegate() {
  App::shared().deskloomPlugin.actionController.onRunCommand = [](const std::optional<std::string>& data) {
    RunCommandActionController().run(data);
  };
  Platform::services().appleEvents.setEventHandler(
      Platform::internetEventClass, Platform::getURLEventID,
      [this](const Platform::AppleEvent& event, Platform::AppleEvent& replyEvent) {
        handleGetURLEvent(event, replyEvent);
      });
}

void AppDelegate::applicationDidFinishLaunching(const Platform::Notification& /*notification*/) {}

void AppDelegate::handleGetURLEvent(const Platform::AppleEvent& event, Platform::AppleEvent& /*replyEvent*/) {
  App::shared().deskloomPlugin.actionController.handleURLEvent(event);
}

}  // namespace Gleanery
