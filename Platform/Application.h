#pragma once

#include "Platform/NotificationCenter.h"

namespace Platform {

/// The running application (NSApplication). It posts its notifications, with itself as the object, through the ambient
/// notification center.
class Application {
 public:
  virtual ~Application() = default;

  /// Asks the application to end (terminate:) and returns. From then on nothing that waits begins: queued work is
  /// dropped, alerts are not shown, and launch URLs go to a fresh process. The will-terminate notification is posted,
  /// once however often this is called; then the process ends.
  virtual void terminate() = 0;
};

}  // namespace Platform
