#pragma once

#include "ActionConfig.h"
#include "PluginConfig.h"

namespace RecentFiles {

/// Carries out an action: sends the host the documents that were used last.
class RunController {
 public:
  /// Sends what the configurations select; an empty list where the desktop's list cannot be read, which is logged. An
  /// error is shown in an alert.
  void run(const ActionConfig& action, const PluginConfig& plugin) const;
};

}  // namespace RecentFiles
