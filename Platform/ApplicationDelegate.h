#pragma once

#include "Platform/NotificationCenter.h"

namespace Platform {

/// What the application's own code hangs on the life of the application (NSApplicationDelegate). It is made before
/// launching finishes and lives until the process ends.
class ApplicationDelegate {
 public:
  virtual ~ApplicationDelegate() = default;

  /// Called once, when the launch URLs that the process was started with have been handled. Not called where one of
  /// them has ended the application.
  virtual void applicationDidFinishLaunching(const Notification& notification) = 0;
};

}  // namespace Platform
