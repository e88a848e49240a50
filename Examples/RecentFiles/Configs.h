#pragma once

#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "DeskloomSDK/Configuration/GlobalConfigProvider.h"
#include "DeskloomSDK/Configuration/LocalConfigProvider.h"
#include "FileKind.h"

namespace RecentFiles {

/// The least and the most documents that an action sends.
inline constexpr int fewestDocuments = 1;
inline constexpr int mostDocuments = 100;

/// The user's settings for one action. The host keeps them.
struct ActionConfig {
  /// How many documents to send.
  int count = 10;
  /// Which documents to send.
  FileKind kind = FileKind::all;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(ActionConfig, count, kind)

/// The user's settings for all actions. The host keeps them.
struct PluginConfig {
  /// The `count` of an action that the user has not edited yet.
  int countOfNewActions = 10;
  /// Whether to leave out files that no longer exist.
  bool leavesOutMissingFiles = true;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PluginConfig, countOfNewActions, leavesOutMissingFiles)

using ActionConfigProvider = DeskloomSDK::LocalConfigProvider<ActionConfig>;
using PluginConfigProvider = DeskloomSDK::GlobalConfigProvider<PluginConfig>;

/// The configurations that the host keeps for this plug-in. Each is read at first use, and only once: if an action had
/// two providers, the one that writes last at the end would overwrite the changes of the other.
class Configs {
 public:
  /// The plug-in's own configuration. Null if the host cannot be read; the user has then seen an alert.
  std::shared_ptr<PluginConfigProvider> plugin();

  /// The configuration of an action. A new action takes its count from the plug-in's configuration. Null as above.
  std::shared_ptr<ActionConfigProvider> action(const std::string& actionID);

 private:
  std::shared_ptr<PluginConfigProvider> plugin_;
  std::map<std::string, std::shared_ptr<ActionConfigProvider>> actions_;
};

}  // namespace RecentFiles
