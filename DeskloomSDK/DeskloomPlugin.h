#pragma once

#include "DeskloomSDK/PluginController.h"
#include "Platform/NotificationCenter.h"

/// The plug-in runtime: it receives launch URLs, sends commands to the host and asks the host questions.
namespace DeskloomSDK {

/// The one object through which a plug-in application uses the runtime. The application makes it before it finishes
/// launching and keeps it for its whole life. It owns the dispatcher of launch URLs. At the end of launching, it checks
/// whether the plug-in was started without one.
class DeskloomPlugin {
 public:
  /// The launch options.
  struct Config {
    /// Whether the launch is checked at all. If it is, a plug-in that the host does not know yet asks the host to
    /// install it, and quits.
    bool askToInstallPluginIfNotInstalled = false;
    /// Whether a plug-in that is installed but was started without an action says that the host must run it, and quits.
    /// Takes effect only together with `askToInstallPluginIfNotInstalled`.
    bool alertUserThatPluginMustBeRunByDeskloomAndQuit = false;
  };

  /// Observes the end of launching from now on.
  explicit DeskloomPlugin(Config launchOptions);
  DeskloomPlugin(const DeskloomPlugin&) = delete;
  DeskloomPlugin& operator=(const DeskloomPlugin&) = delete;
  ~DeskloomPlugin();

  /// The launch options. They are read at the end of launching and may change until then.
  Config config;
  /// Dispatches launch URLs to the action handlers, which the application sets here.
  PluginController actionController;

  /// Checks the launch if the options ask for it. Called after the launch URL, if there is one, was dispatched.
  void applicationDidFinishLaunching(const Platform::Notification& notification);

 private:
  void verifyLaunch();
  void handleInstalledPlugin() const;
  void handleMissingPlugin() const;

  Platform::NotificationCenter& notifications_;
  Platform::NotificationCenter::Token observation_;
};

}  // namespace DeskloomSDK
