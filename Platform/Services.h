#pragma once

#include "Platform/Alerts.h"
#include "Platform/AppleEventManager.h"
#include "Platform/Application.h"
#include "Platform/Bundle.h"
#include "Platform/Clock.h"
#include "Platform/Log.h"
#include "Platform/NotificationCenter.h"
#include "Platform/Queues.h"
#include "Platform/ScriptEngine.h"
#include "Platform/Strings.h"
#include "Platform/Updater.h"
#include "Platform/Windows.h"
#include "Platform/Workspace.h"

namespace Platform {

/// All that the layers above need from a desktop. One set is ambient: the application main routine installs this
/// desktop's, a test fixture a fake one.
struct Services {
  /// The shared application object; null where there is none.
  Application* application;
  /// Each stands for what its class says. @{
  AppleEventManager& appleEvents;
  NotificationCenter& notifications;
  ScriptEngine& scripts;
  Workspace& workspace;
  Alerts& alerts;
  Windows& windows;
  Bundle& bundle;
  Strings& strings;
  Log& log;
  Queues& queues;
  Clock& clock;
  /// @}
  /// The shared updater; null where there is none.
  Updater* updater;
};

/// The ambient services. Stops the process with a fatal error where none are installed.
const Services& services();

/// The shared application object (NSApp). Stops the process with a fatal error where there is none.
Application& sharedApplication();

/// Makes a set of services the ambient one for as long as the installation lives; then the earlier one is again. The
/// set must outlive it.
class ServicesInstallation {
 public:
  /// Installs the set.
  explicit ServicesInstallation(const Services& services);
  ServicesInstallation(const ServicesInstallation&) = delete;
  ServicesInstallation& operator=(const ServicesInstallation&) = delete;
  ~ServicesInstallation();

 private:
  const Services* previous_;
};

}  // namespace Platform
