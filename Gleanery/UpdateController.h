#pragma once

#include "Platform/Services.h"

namespace Gleanery {

/// The one place that holds the platform's updater. There is one, made at first use and kept until the process ends.
class UpdateController {
 public:
  /// Stops the process with a fatal error where the platform has no updater.
  static UpdateController& shared();
  UpdateController(const UpdateController&) = delete;
  UpdateController& operator=(const UpdateController&) = delete;
  ~UpdateController() = default;

  Platform::Updater& updater;

 private:
  UpdateController();
};

}  // namespace Gleanery
