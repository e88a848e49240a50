#include "DeskloomSDK/InstallPluginController.h"

#include "DeskloomSDK/Host/AppleScriptRunner.h"
#include "Platform/Services.h"

namespace DeskloomSDK {

namespace {

constexpr const char* installationScript = "    tell application \"Deskloom\" to install plugin";

Platform::Alert failureAlert() {
  const auto& strings = Platform::services().strings;
  return {.messageText = strings.localized("Plugin cannot be installed.",
                                           "Can't communicate with Deskloom message during plugin installation."),
          .informativeText = strings.localized(
              "Please make sure you have the latest version of Deskloom installed. If problem occurs again, go to "
              "Preferences -> Plugins and install the plugin there.",
              "Can't communicate with Deskloom informative text of message during plugin installation.")};
}

}  // namespace

void InstallPluginController::requestInstallation() const {
  if (AppleScriptRunner::run(installationScript))
    return;
  Platform::services().alerts.runModal(failureAlert());
  Platform::sharedApplication().terminate();
}

void InstallPluginController::installPluginAndQuit() const {
  requestInstallation();
  Platform::sharedApplication().terminate();
}

}  // namespace DeskloomSDK
