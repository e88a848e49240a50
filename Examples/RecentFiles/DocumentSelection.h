#pragma once

#include <vector>

#include "Configs.h"
#include "DeskloomSDK/Resources/Resource.h"
#include "RecentDocuments.h"

namespace RecentFiles {

/// The resources to send for an action: the first documents of the action's kind, as many as it asks for but at most
/// 100. Leaves out documents whose address is not a URL, and missing files if `plugin` says so.
std::vector<DeskloomSDK::Resource> selectedResources(const std::vector<RecentDocument>& documents,
                                                     const ActionConfig& action, const PluginConfig& plugin);

}  // namespace RecentFiles
