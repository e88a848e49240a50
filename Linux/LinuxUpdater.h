#pragma once

#include "Linux/LinuxBundle.h"
#include "Platform/Log.h"
#include "Platform/Updater.h"

namespace Platform::Linux {

/// Checks for updates in a process of its own, the bundle's program `update-check`, which outlives this one. It is
/// started only where the bundle's `Info.ini` names a feed and does not switch automatic checks off:
///
///     [Updates]
///     FeedURL=https://example.com/appcast.xml
///     AutomaticChecks=true
///
class LinuxUpdater : public Updater {
 public:
  LinuxUpdater(const LinuxBundle& bundle, Log& log) : bundle_(bundle), log_(log) {}

  void checkForUpdatesInBackground() override;

 private:
  const LinuxBundle& bundle_;
  Log& log_;
};

}  // namespace Platform::Linux
