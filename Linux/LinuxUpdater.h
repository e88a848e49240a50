#pragma once

#include "Linux/LinuxBundle.h"
#include "Platform/Log.h"
#include "Platform/Updater.h"

namespace Platform::Linux {

/// Checks for updates in a process of its own, which outlives this one: the program `update-check` in the bundle.
/// Starts it if `Info.ini` names a feed and does not switch automatic checks off:
///
///     [Updates]
///     FeedURL=https://example.com/appcast.xml
///     AutomaticChecks=true            (default: true)
///
/// AutomaticChecks is read here and nowhere else. If it is neither "true" nor "false", nothing is started and the log
/// says so.
class LinuxUpdater : public Updater {
 public:
  LinuxUpdater(const LinuxBundle& bundle, Log& log) : bundle_(bundle), log_(log) {}

  void checkForUpdatesInBackground() override;

 private:
  const LinuxBundle& bundle_;
  Log& log_;
};

}  // namespace Platform::Linux
