#pragma once

#include "DeskloomSDK/PluginController.h"
#include "Platform/NotificationCenter.h"

/// The plug-in runtime: launch URLs in, commands to the host out, and what the host can be asked.
namespace DeskloomSDK {

/// The one object through which a plug-in application uses the runtime. The application makes it before it finishes
/// launching and keeps it for its whole life. It dispatches the launch URLs, and at the end of launching it sees to a
/// plug-in that was started without one.
class DeskloomPlugin {
 public:
  /// The launch options.
  struct Config {
    /// Whether the launch is checked at all: a plug-in that the host does not know yet asks the host to install it, and
    /// quits.
    bool askToInstallPluginIfNotInstalled = false;
    /// Whether a plug-in that is installed but was started without an action says that the host must run it, and quits.
    /// Takes effect only together with the other.
    bool alertUserThatPluginMustBeRunByDeskloomAndQuit = false;
  };

  /// Observes the end of launching from here on.
  explicit DeskloomPlugin(Config launchOptions);
  DeskloomPlugin(const DeskloomPlugin&) = delete;
  DeskloomPlugin& operator=(const DeskloomPlugin&) = delete;
  ~DeskloomPlugin();

  /// Read at the end of launching, so an application may still change it until then.
  Config config;
  /// Where the application sets its action handlers.
  PluginController actionController;

  /// Checks the launch where the options ask for it. Called once the launch URL, if any, has been dispatched.
  void applicationDidFinishLaunching(const Platform::Notification& notification);

 private:
  void verifyLaunch();
  void handleInstalledPlugin() const;
  void handleMissingPlugin() const;

  Platform::NotificationCenter& notifications_;
  Platform::NotificationCenter::Token observation_;
};

}  // namespace DeskloomSDK
