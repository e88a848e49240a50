#pragma once

#include "Platform/Text/URL.h"

namespace Platform {

/// The desktop as a place where things are opened (NSWorkspace).
class Workspace {
 public:
  virtual ~Workspace() = default;

  /// Hands the URL to the application that is registered for its scheme (openURL:), starting it if needed, and returns
  /// at once. The hand-over completes before the process ends; one that fails is logged, and the caller is not told.
  /// May be called on any thread.
  virtual void open(URL url) = 0;
};

}  // namespace Platform
