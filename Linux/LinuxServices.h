#pragma once

#include "Linux/LinuxAlerts.h"
#include "Linux/LinuxApplication.h"
#include "Linux/LinuxBundle.h"
#include "Linux/LinuxClock.h"
#include "Linux/LinuxLog.h"
#include "Linux/LinuxQueues.h"
#include "Linux/LinuxScriptEngine.h"
#include "Linux/LinuxStrings.h"
#include "Linux/LinuxUpdater.h"
#include "Linux/LinuxWindows.h"
#include "Linux/LinuxWorkspace.h"
#include "Linux/WindowModule.h"
#include "Platform/Services.h"

namespace Platform::Linux {

/// A freedesktop desktop behind the seam. It is the ambient one for as long as it lives.
class LinuxServices {
 public:
  AppleEventManager appleEvents;
  NotificationCenter notifications;
  LinuxLog log;
  LinuxBundle bundle;
  LinuxStrings strings{bundle};
  WindowModule windowModule{bundle};
  LinuxApplication application{appleEvents, notifications};
  LinuxScriptEngine scripts;
  LinuxWorkspace workspace{log};
  LinuxAlerts alerts{windowModule, application, strings, log};
  LinuxWindows windows{windowModule, log};
  LinuxClock clock;
  LinuxUpdater updater{bundle, log};
  LinuxQueues queues{application};

 private:
  Services services_{&application, appleEvents, notifications, scripts, workspace, alerts,  windows,
                     bundle,       strings,     log,           queues,  clock,     &updater};
  ServicesInstallation installation_{services_};
};

}  // namespace Platform::Linux
