#pragma once

#include "Platform/Error.h"
#include "Platform/Windows.h"

namespace DeskloomSDK {

/// What a configuration provider was about when it failed.
enum class ConfigOperation { read, save };

/// The alert that tells the user of a configuration that could not be read or saved, and why.
Platform::Alert configAlert(const Platform::Error& error, ConfigOperation operation);

/// Shows the alert for a failed reading and waits until the user dismisses it.
void showConfigAlert(const Platform::Error& error);

/// Takes a step of an APIResult and yields it; where the step has failed, the user has been shown the alert. Reading
/// and saving alike show the title for reading.
template <typename Result>
Result guardedByAlert(Result result) {
  if (!result)
    showConfigAlert(result.error());
  return result;
}

}  // namespace DeskloomSDK
