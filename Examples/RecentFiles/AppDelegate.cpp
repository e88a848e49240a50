#include "AppDelegate.h"

#include "Platform/Services.h"
#include "RunController.h"

namespace RecentFiles {

AppDelegate::AppDelegate() {
  auto& actions = plugin_.actionController;
  actions.onRun = [this](const std::string& actionID) { run(actionID); };
  actions.onEdit = [this](const std::string& actionID) { edit(actionID); };
  actions.onConfigure = [this] { configure(); };
  Platform::services().appleEvents.setEventHandler(
      Platform::internetEventClass, Platform::getURLEventID,
      [&actions](const Platform::AppleEvent& event, Platform::AppleEvent&) { actions.handleURLEvent(event); });
}

void AppDelegate::applicationDidFinishLaunching(const Platform::Notification& /*notification*/) {}

void AppDelegate::run(const std::string& actionID) {
  if (const auto action = configs_.action(actionID))
    RunController().run(action->config, configs_.plugin()->config);
  openWindows_.terminateIfNone();
}

void AppDelegate::edit(const std::string& actionID) {
  const auto action = configs_.action(actionID);
  show(action ? editWindows_.try_emplace(actionID, action).first->second.window() : nullptr);
}

void AppDelegate::configure() {
  const auto plugin = configs_.plugin();
  if (plugin && !configureWindow_)
    configureWindow_.emplace(plugin);
  show(configureWindow_ ? configureWindow_->window() : nullptr);
}

void AppDelegate::show(Platform::Window* window) {
  if (window != nullptr)
    openWindows_.show(*window);
  openWindows_.terminateIfNone();
}

}  // namespace RecentFiles
