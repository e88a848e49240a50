#include "DeskloomSDK/Configuration/HostedConfig.h"

#include <vector>

namespace DeskloomSDK {

Platform::Alert configAlert(const Platform::Error& error, ConfigOperation operation) {
  const auto& strings = Platform::services().strings;
  return {.messageText = operation == ConfigOperation::save
                             ? strings.localized("Could not save action data in Deskloom.", "Alert title")
                             : strings.localized("Could not read action data in Deskloom.", "Alert title"),
          .informativeText = error.localizedDescription(),
          .buttons = {strings.localized("OK", "OK button title")}};
}

void showConfigAlert(const Platform::Error& error) {
  Platform::services().alerts.runModal(configAlert(error, ConfigOperation::read));
}

void keepUntilProcessEnds(std::shared_ptr<const ConfigProvider> provider) {
  // Never destroyed, since a provider's destructor may use static objects that are gone by then.
  static auto* const kept = new std::vector<std::shared_ptr<const ConfigProvider>>;
  kept->push_back(std::move(provider));
}

}  // namespace DeskloomSDK
