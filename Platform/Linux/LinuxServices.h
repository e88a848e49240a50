#pragma once

#include "Platform/Linux/LinuxAlerts.h"
#include "Platform/Linux/LinuxApplication.h"
#include "Platform/Linux/LinuxBundle.h"
#include "Platform/Linux/LinuxClock.h"
#include "Platform/Linux/LinuxLog.h"
#include "Platform/Linux/LinuxQueues.h"
#include "Platform/Linux/LinuxScriptEngine.h"
#include "Platform/Linux/LinuxStrings.h"
#include "Platform/Linux/LinuxUpdater.h"
#include "Platform/Linux/LinuxWindows.h"
#include "Platform/Linux/LinuxWorkspace.h"
#include "Platform/Linux/WindowModule.h"
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
