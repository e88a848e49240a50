#pragma once

#include "Linux/Bundle.h"
#include "Platform/Log.h"
#include "Platform/Services.h"

namespace Linux {

/// Checks for updates in a process of its own, the bundle's program `update-check`, which outlives this one. It is
/// started only where the bundle's `Info.ini` names a feed and does not switch automatic checks off:
///
///     [Updates]
///     FeedURL=https://example.com/appcast.xml
///     AutomaticChecks=true
///
class Updater : public Platform::Updater {
 public:
  Updater(const Bundle& bundle, Platform::Log& log) : bundle_(bundle), log_(log) {}

  void checkForUpdatesInBackground() override;

 private:
  const Bundle& bundle_;
  Platform::Log& log_;
};

}  // namespace Linux
