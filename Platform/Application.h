#pragma once

#include "Platform/NotificationCenter.h"

namespace Platform {

/// The running application (NSApplication). It posts its notifications, with itself as the object, through the ambient
/// notification center.
class Application {
 public:
  virtual ~Application() = default;

  /// Asks the application to end (terminate:) and returns. What has already been delivered to the process is handled
  /// first; then the will-terminate notification is posted, once however often this is called; then the process ends.
  virtual void terminate() = 0;
};

}  // namespace Platform
