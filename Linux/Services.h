#pragma once

#include "Linux/Application.h"
#include "Linux/Bundle.h"
#include "Linux/Queues.h"
#include "Linux/Updater.h"
#include "Linux/Windows.h"
#include "Linux/Workspace.h"
#include "Platform/Services.h"

namespace Linux {

/// Writes to the journal, or to syslog if there is none, and to standard error. Of the control characters in a message
/// only line feeds are kept, and no character that changes the direction of writing is.
class Log : public Platform::Log {
 public:
  void write(std::string_view message) override;
};

/// The project's own interpreter, with the applications that can be scripted on this desktop.
class ScriptEngine : public Platform::ScriptEngine {
 public:
  std::optional<Platform::ScriptOutcome> run(std::string_view source) override;
};

/// The services of a freedesktop desktop. They are the ambient ones for as long as this lives.
class Services {
 public:
  Platform::AppleEventManager appleEvents;
  Platform::NotificationCenter notifications;
  Log log;
  Bundle bundle;
  Strings strings{bundle};
  Application application{appleEvents, notifications};
  ScriptEngine scripts;
  Workspace workspace{log};
  Windows windows{bundle, log};
  Alerts alerts{windows, application, strings, log};
  Clock clock;
  Updater updater{bundle, log};
  Queues queues{application};

 private:
  Platform::Services services_{&application, appleEvents, notifications, scripts, workspace, alerts,  windows,
                               bundle,       strings,     log,           queues,  clock,     &updater};
  Platform::ServicesInstallation installation_{services_};
};

}  // namespace Linux
