#pragma once

#include "Platform/AppleEvents.h"
#include "Platform/Application.h"
#include "Platform/Bundle.h"
#include "Platform/Log.h"
#include "Platform/NotificationCenter.h"
#include "Platform/Queues.h"
#include "Platform/ScriptEngine.h"
#include "Platform/Text/URL.h"
#include "Platform/Windows.h"

namespace Platform {

/// The desktop as a place where things are opened (NSWorkspace).
class Workspace {
 public:
  virtual ~Workspace() = default;

  /// Gives the URL to the application that is registered for its scheme (openURL:), starting it if needed, and returns
  /// at once. The hand-over completes before the process ends. If it fails, the log says so, and the caller is not
  /// told. May be called on any thread.
  virtual void open(URL url) = 0;
};

/// Looks for newer versions of the application (SUUpdater). Whether, how often and where is a setting of the main
/// bundle.
class Updater {
 public:
  virtual ~Updater() = default;

  /// Begins a check and returns (checkForUpdatesInBackground). The updater itself reports what it finds and what fails.
  virtual void checkForUpdatesInBackground() = 0;
};

/// All that the layers above need from a desktop. One set is ambient: the application main routine installs this
/// desktop's, and a test fixture installs a fake one.
struct Services {
  /// The shared application object; null if there is none.
  Application* application;
  /// Each is described at its class. @{
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
  /// The shared updater; null if there is none.
  Updater* updater;
};

/// The ambient services. Stops the process with a fatal error if none are installed.
const Services& services();

/// The shared application object (NSApp). Stops the process with a fatal error if there is none.
Application& sharedApplication();

/// Makes a set of services the ambient one for as long as the installation lives; then the earlier one is ambient
/// again. The set must outlive the installation.
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
