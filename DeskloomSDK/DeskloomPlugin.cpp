#include "DeskloomSDK/DeskloomPlugin.h"

#include "DeskloomSDK/Host/DeskloomAPI.h"
#include "DeskloomSDK/InstallPluginController.h"
#include "Platform/Services.h"

namespace DeskloomSDK {

namespace {

Platform::Alert hostOnlyAlert() {
  const auto& strings = Platform::services().strings;
  return {.messageText = strings.localized("This plugin must be run by Deskloom app.",
                                           "Information that plugin must be run by Deskloom"),
          .buttons = {strings.localized("OK", "OK button")}};
}

void alertAndQuit(const Platform::Alert& alert) {
  Platform::services().alerts.runModal(alert);
  Platform::sharedApplication().terminate();
}

}  // namespace

DeskloomPlugin::DeskloomPlugin(Config launchOptions)
    : config(launchOptions),
      notifications_(Platform::services().notifications),
      observation_(notifications_.addObserver(
          Platform::applicationDidFinishLaunchingNotification, nullptr,
          [this](const Platform::Notification& notification) { applicationDidFinishLaunching(notification); })) {}

DeskloomPlugin::~DeskloomPlugin() {
  notifications_.removeObserver(observation_);
}

void DeskloomPlugin::applicationDidFinishLaunching(const Platform::Notification& /*notification*/) {
  if (config.askToInstallPluginIfNotInstalled)
    verifyLaunch();
}

void DeskloomPlugin::verifyLaunch() {
  if (actionController.didPerformAction)
    return;
  const auto installed = DeskloomAPI().isPluginInstalled(Platform::services().bundle.path().native());
  if (!installed)
    alertAndQuit(Platform::Alert::withError(installed.error()));
  else if (*installed)
    handleInstalledPlugin();
  else
    handleMissingPlugin();
}

void DeskloomPlugin::handleInstalledPlugin() const {
  if (config.alertUserThatPluginMustBeRunByDeskloomAndQuit)
    alertAndQuit(hostOnlyAlert());
}

void DeskloomPlugin::handleMissingPlugin() const {
  if (!config.askToInstallPluginIfNotInstalled)
    return;
  InstallPluginController().requestInstallation();
  Platform::sharedApplication().terminate();
}

}  // namespace DeskloomSDK
