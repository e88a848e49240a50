#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace HostStandIn {

/// The commands that plug-ins send to the host by script, and the configuration that the host keeps for them.
class ScriptingCommands {
 public:
  struct Setup {
    std::string pluginFolder;
    /// Whether every plug-in counts as installed from the start.
    bool isInstalled = false;
    bool refusesInstallation = false;
  };

  explicit ScriptingCommands(Setup setup) : setup_(std::move(setup)) {}

  /// The configuration of this plug-in; empty before it is first set.
  [[nodiscard]] std::string globalConfig(const std::string& bundleID) const;
  void setGlobalConfig(std::string text, const std::string& bundleID);

  /// The configuration of this action; empty before it is first set.
  [[nodiscard]] std::string config(const std::string& actionID) const;
  void setConfig(std::string text, const std::string& actionID);

  [[nodiscard]] const std::string& pluginFolderPath() const { return setup_.pluginFolder; }

  /// The path of the plug-in with this name; `nullopt` while no plug-in is installed.
  [[nodiscard]] std::optional<std::string> pathOfPlugin(const std::string& name) const;

  /// One answer for all plug-ins, since the request to install one does not say which.
  [[nodiscard]] bool isPluginInstalled() const { return setup_.isInstalled; }

  /// False if the installation is refused.
  [[nodiscard]] bool installPlugin();

 private:
  Setup setup_;
  std::map<std::string, std::string> globalConfigs_;
  std::map<std::string, std::string> configs_;
};

}  // namespace HostStandIn
