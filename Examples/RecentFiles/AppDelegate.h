#pragma once

#include <map>
#include <optional>
#include <string>

#include "Configs.h"
#include "ConfigureWindowController.h"
#include "DeskloomSDK/DeskloomPlugin.h"
#include "EditWindowController.h"
#include "OpenWindows.h"
#include "Platform/Application.h"

namespace RecentFiles {

/// Connects the runtime to what this plug-in does: made by the application main routine, before launching finishes.
class AppDelegate : public Platform::ApplicationDelegate {
 public:
  /// Installs the action handlers and becomes the handler of launch URLs.
  AppDelegate();
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;
  ~AppDelegate() override = default;

  void applicationDidFinishLaunching(const Platform::Notification& notification) override;

 private:
  void run(const std::string& actionID);
  void edit(const std::string& actionID);
  void configure();
  /// Shows the window, if there is one.
  void show(Platform::Window* window);

  DeskloomSDK::DeskloomPlugin plugin_{
      {.askToInstallPluginIfNotInstalled = true, .alertUserThatPluginMustBeRunByDeskloomAndQuit = true}};
  Configs configs_;
  OpenWindows openWindows_;
  std::map<std::string, EditWindowController> editWindows_;
  std::optional<ConfigureWindowController> configureWindow_;
};

}  // namespace RecentFiles
