#pragma once

namespace DeskloomSDK {

/// Asks the host to install this plug-in, and tells the user what to do if the host cannot be reached.
class InstallPluginController {
 public:
  InstallPluginController() = default;
  InstallPluginController(const InstallPluginController&) = delete;
  InstallPluginController& operator=(const InstallPluginController&) = delete;
  ~InstallPluginController() = default;

  /// Sends the request. If it fails, shows an alert and asks the application to terminate; the alert does not show the
  /// error's own texts.
  void requestInstallation() const;

  /// Sends the request, and asks the application to terminate whether it succeeds or fails.
  void installPluginAndQuit() const;
};

}  // namespace DeskloomSDK
