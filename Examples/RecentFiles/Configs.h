#pragma once

#include <map>
#include <memory>
#include <string>

#include "ActionConfig.h"
#include "DeskloomSDK/Configuration/GlobalConfigProvider.h"
#include "DeskloomSDK/Configuration/LocalConfigProvider.h"
#include "PluginConfig.h"

namespace RecentFiles {

using ActionConfigProvider = DeskloomSDK::LocalConfigProvider<ActionConfig>;
using PluginConfigProvider = DeskloomSDK::GlobalConfigProvider<PluginConfig>;

/// The configurations that the host keeps for this plug-in. Each is read when it is first asked for, and only then: of
/// two providers of one action, the one that writes last at the end would undo what was changed in the other.
class Configs {
 public:
  /// The plug-in's own. Null where the host cannot be read, which the user has been told then.
  std::shared_ptr<PluginConfigProvider> plugin();

  /// That of an action; one that has none yet begins with what the plug-in's says of new ones. Null as above.
  std::shared_ptr<ActionConfigProvider> action(const std::string& actionID);

 private:
  std::shared_ptr<PluginConfigProvider> plugin_;
  std::map<std::string, std::shared_ptr<ActionConfigProvider>> actions_;
};

}  // namespace RecentFiles
