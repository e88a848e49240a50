#include "HostStandIn/ScriptingCommands.h"

namespace HostStandIn {

namespace {

std::string find(const std::map<std::string, std::string>& texts, const std::string& key) {
  const auto found = texts.find(key);
  return found == texts.end() ? "" : found->second;
}

}  // namespace

std::string ScriptingCommands::globalConfig(const std::string& bundleID) const {
  return find(globalConfigs_, bundleID);
}

void ScriptingCommands::setGlobalConfig(std::string text, const std::string& bundleID) {
  globalConfigs_[bundleID] = std::move(text);
}

std::string ScriptingCommands::config(const std::string& actionID) const {
  return find(configs_, actionID);
}

void ScriptingCommands::setConfig(std::string text, const std::string& actionID) {
  configs_[actionID] = std::move(text);
}

std::optional<std::string> ScriptingCommands::pathOfPlugin(const std::string& name) const {
  if (!setup_.isInstalled)
    return std::nullopt;
  return setup_.pluginFolder + "/" + name;
}

bool ScriptingCommands::installPlugin() {
  if (setup_.refusesInstallation)
    return false;
  setup_.isInstalled = true;
  return true;
}

}  // namespace HostStandIn
