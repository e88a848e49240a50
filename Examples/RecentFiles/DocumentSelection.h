#pragma once

#include <vector>

#include "ActionConfig.h"
#include "DeskloomSDK/Resources/Resource.h"
#include "PluginConfig.h"
#include "RecentDocument.h"

namespace RecentFiles {

/// What the two configurations leave of the documents, in their order: those of the action's kind, as many as it wants
/// but at most 100. A document whose address is no URL is left out.
std::vector<DeskloomSDK::Resource> selectedResources(const std::vector<RecentDocument>& documents,
                                                     const ActionConfig& action, const PluginConfig& plugin);

}  // namespace RecentFiles
