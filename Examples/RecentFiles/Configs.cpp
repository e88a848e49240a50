#include "Configs.h"

namespace RecentFiles {

std::shared_ptr<PluginConfigProvider> Configs::plugin() {
  if (!plugin_)
    plugin_ = PluginConfigProvider::make();
  return plugin_;
}

std::shared_ptr<ActionConfigProvider> Configs::action(const std::string& actionID) {
  const auto general = plugin();
  if (!general)
    return nullptr;
  auto& provider = actions_[actionID];
  if (!provider)
    provider = ActionConfigProvider::make(actionID, {.count = general->config.countOfNewActions});
  return provider;
}

}  // namespace RecentFiles
