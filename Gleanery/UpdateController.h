#pragma once

#include "Platform/Services.h"

namespace Gleanery {

/// Holds the platform's updater. There is one `UpdateController`, made at first use and kept until the process ends.
class UpdateController {
 public:
  /// Stops the process with a fatal error if the platform has no updater.
  static UpdateController& shared();
  UpdateController(const UpdateController&) = delete;
  UpdateController& operator=(const UpdateController&) = delete;
  ~UpdateController() = default;

  Platform::Updater& updater;

 private:
  UpdateController();
};

}  // namespace Gleanery
