#include "DeskloomSDK/Configuration/ConfigAlert.h"

#include "Platform/Services.h"

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

}  // namespace DeskloomSDK
