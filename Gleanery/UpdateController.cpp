#include "Gleanery/UpdateController.h"

#include "Platform/Error.h"
#include "Platform/Services.h"

namespace Gleanery {

namespace {

Platform::Updater& sharedUpdater() {
  Platform::Updater* updater = Platform::services().updater;
  if (updater == nullptr)
    Platform::fatalError("There is no updater.");
  return *updater;
}

}  // namespace

UpdateController& UpdateController::shared() {
  static UpdateController controller;
  return controller;
}

UpdateController::UpdateController() : updater(sharedUpdater()) {}

}  // namespace Gleanery
