#pragma once

#include <nlohmann/json.hpp>

namespace RecentFiles {

/// What the user has set up for all actions; the host keeps it.
struct PluginConfig {
  /// How many documents an action sends that the user has not set up yet.
  int countOfNewActions = 10;
  /// Whether files that are gone are left out.
  bool leavesOutMissingFiles = true;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(PluginConfig, countOfNewActions, leavesOutMissingFiles)

}  // namespace RecentFiles
