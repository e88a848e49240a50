#pragma once

#include "Linux/Bundle.h"
#include "Platform/Log.h"
#include "Platform/Services.h"

namespace Linux {

/// Checks for updates in a process of its own, which outlives this one: the program `update-check` in the bundle.
/// Starts it if `Info.ini` names a feed and does not switch automatic checks off:
///
///     [Updates]
///     FeedURL=https://example.com/appcast.xml
///     AutomaticChecks=true            (default: true)
///
/// AutomaticChecks is read here and nowhere else. If it is neither "true" nor "false", nothing is started and the log
/// says so.
class Updater : public Platform::Updater {
 public:
  Updater(const Bundle& bundle, Platform::Log& log) : bundle_(bundle), log_(log) {}

  void checkForUpdatesInBackground() override;

 private:
  const Bundle& bundle_;
  Platform::Log& log_;
};

}  // namespace Linux
