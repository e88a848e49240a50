#include "AppDelegate.h"

#include <utility>
#include <vector>

#include "DeskloomSDK/Resources/Command.h"
#include "DocumentSelection.h"
#include "Platform/Services.h"
#include "RecentDocuments.h"
#include "SettingsWindows.h"

namespace RecentFiles {

namespace {

/// The desktop's list, or an empty one and a line in the log if it cannot be read.
std::vector<RecentDocument> documents() {
  auto documents = recentDocuments(recentDocumentsFile());
  if (documents)
    return std::move(*documents);
  Platform::services().log.write("no recently used documents: " + documents.error());
  return {};
}

void sendDocuments(const ActionConfig& action, const PluginConfig& plugin) {
  const auto sent = DeskloomSDK::Command(selectedResources(documents(), action, plugin)).send();
  if (!sent)
    Platform::services().alerts.runModal(Platform::Alert::withError(sent.error()));
}

}  // namespace

AppDelegate::AppDelegate() {
  auto& actions = plugin_.actionController;
  actions.onRun = [this](const std::string& actionID) { run(actionID); };
  actions.onEdit = [this](const std::string& actionID) { edit(actionID); };
  actions.onConfigure = [this] { configure(); };
  connect(plugin_);
}

void AppDelegate::run(const std::string& actionID) {
  if (const auto action = configs_.action(actionID))
    sendDocuments(action->config, configs_.plugin()->config);
  openWindows_.terminateIfNone();
}

void AppDelegate::edit(const std::string& actionID) {
  const auto action = configs_.action(actionID);
  auto& window = editWindows_[actionID];
  if (action && !window)
    window = makeEditWindow(action);
  show(window.get());
}

void AppDelegate::configure() {
  const auto plugin = configs_.plugin();
  if (plugin && !configureWindow_)
    configureWindow_ = makeConfigureWindow(plugin);
  show(configureWindow_.get());
}

void AppDelegate::show(Platform::Window* window) {
  if (window != nullptr)
    openWindows_.show(*window);
  openWindows_.terminateIfNone();
}

}  // namespace RecentFiles
