#pragma once

namespace DeskloomSDK {

/// Asks the host to install this plug-in, and tells the user what to do where the host cannot be reached.
class InstallPluginController {
 public:
  InstallPluginController() = default;
  InstallPluginController(const InstallPluginController&) = delete;
  InstallPluginController& operator=(const InstallPluginController&) = delete;
  ~InstallPluginController() = default;

  /// Sends the request. Where it fails, shows an alert and asks the application to terminate; the error's own texts are
  /// not shown.
  void requestInstallation() const;

  /// Sends the request and asks the application to terminate in either outcome.
  void installPluginAndQuit() const;
};

}  // namespace DeskloomSDK
