#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace HostStandIn {

/// The host's side of the commands that plug-ins send it by script, with the configuration it keeps for them. An answer
/// without a value is a command that succeeds and yields nothing.
class ScriptingCommands {
 public:
  struct Setup {
    std::string pluginFolder;
    /// Whether every plug-in counts as installed from the beginning.
    bool isInstalled = false;
    bool refusesInstallation = false;
  };

  explicit ScriptingCommands(Setup setup) : setup_(std::move(setup)) {}

  /// The configuration of this plug-in; the empty text before it is first set.
  [[nodiscard]] std::string globalConfig(const std::string& bundleID) const;
  void setGlobalConfig(std::string text, const std::string& bundleID);

  /// The configuration of this action; the empty text before it is first set.
  [[nodiscard]] std::string config(const std::string& actionID) const;
  void setConfig(std::string text, const std::string& actionID);

  [[nodiscard]] const std::string& pluginFolderPath() const { return setup_.pluginFolder; }

  /// Where the plug-in of this name is; none while no plug-in is installed.
  [[nodiscard]] std::optional<std::string> pathOfPlugin(const std::string& name) const;

  /// The same for every plug-in: the request to install one does not say which.
  [[nodiscard]] bool isPluginInstalled() const { return setup_.isInstalled; }

  /// False where the installation is refused.
  [[nodiscard]] bool installPlugin();

 private:
  Setup setup_;
  std::map<std::string, std::string> globalConfigs_;
  std::map<std::string, std::string> configs_;
};

}  // namespace HostStandIn
