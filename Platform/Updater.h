#pragma once

namespace Platform {

/// Looks for newer versions of the application (SUUpdater). Where it looks, how often, and whether at all are settings
/// of the main bundle.
class Updater {
 public:
  virtual ~Updater() = default;

  /// Begins a check and returns; what it finds, and what fails, is the updater's own affair
  /// (checkForUpdatesInBackground).
  virtual void checkForUpdatesInBackground() = 0;
};

}  // namespace Platform
