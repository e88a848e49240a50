#include "DeskloomSDK/PluginDelegate.h"

#include "Platform/Services.h"

namespace DeskloomSDK {

void PluginDelegate::applicationDidFinishLaunching(const Platform::Notification& /*notification*/) {}

void PluginDelegate::connect(DeskloomPlugin& plugin) {
  plugin_ = &plugin;
  Platform::services().appleEvents.setEventHandler(
      Platform::internetEventClass, Platform::getURLEventID,
      lifetime_.guarded([this](const Platform::AppleEvent& event, Platform::AppleEvent& replyEvent) {
        handleGetURLEvent(event, replyEvent);
      }));
}

void PluginDelegate::handleGetURLEvent(const Platform::AppleEvent& event, Platform::AppleEvent& /*replyEvent*/) {
  if (plugin_ != nullptr)
    plugin_->actionController.handleURLEvent(event);
}

}  // namespace DeskloomSDK
