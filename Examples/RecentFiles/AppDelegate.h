#pragma once

#include <map>
#include <memory>
#include <string>

#include "Configs.h"
#include "DeskloomSDK/PluginDelegate.h"
#include "OpenWindows.h"
#include "Platform/Windows.h"

namespace RecentFiles {

/// Does what the launch URLs ask for. The application main routine makes it before launching finishes.
class AppDelegate : public DeskloomSDK::PluginDelegate {
 public:
  /// Sets the action handlers and connects the plug-in.
  AppDelegate();

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
  std::map<std::string, std::unique_ptr<Platform::Window>> editWindows_;
  std::unique_ptr<Platform::Window> configureWindow_;
};

}  // namespace RecentFiles
