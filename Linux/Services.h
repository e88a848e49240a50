#pragma once

#include "Linux/Alerts.h"
#include "Linux/Application.h"
#include "Linux/Bundle.h"
#include "Linux/Clock.h"
#include "Linux/Log.h"
#include "Linux/Queues.h"
#include "Linux/ScriptEngine.h"
#include "Linux/Strings.h"
#include "Linux/Updater.h"
#include "Linux/WindowModule.h"
#include "Linux/Windows.h"
#include "Linux/Workspace.h"
#include "Platform/Services.h"

namespace Linux {

/// A freedesktop desktop behind the seam. It is the ambient one for as long as it lives.
class Services {
 public:
  Platform::AppleEventManager appleEvents;
  Platform::NotificationCenter notifications;
  Log log;
  Bundle bundle;
  Strings strings{bundle};
  WindowModule windowModule{bundle};
  Application application{appleEvents, notifications};
  ScriptEngine scripts;
  Workspace workspace{log};
  Alerts alerts{windowModule, application, strings, log};
  Windows windows{windowModule, log};
  Clock clock;
  Updater updater{bundle, log};
  Queues queues{application};

 private:
  Platform::Services services_{&application, appleEvents, notifications, scripts, workspace, alerts,  windows,
                               bundle,       strings,     log,           queues,  clock,     &updater};
  Platform::ServicesInstallation installation_{services_};
};

}  // namespace Linux
