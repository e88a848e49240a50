#include "DocumentSelection.h"

#include <algorithm>
#include <cstddef>
#include <system_error>
#include <utility>

#include "DocumentResource.h"

namespace RecentFiles {

using DeskloomSDK::Resource;

namespace {

bool isMissing(const Resource& resource) {
  std::error_code failure;
  const auto path = localPath(resource.url());
  return path && !std::filesystem::exists(*path, failure);
}

}  // namespace

std::vector<Resource> selectedResources(const std::vector<RecentDocument>& documents, const ActionConfig& action,
                                        const PluginConfig& plugin) {
  const auto wanted = static_cast<std::size_t>(std::clamp(action.count, fewestDocuments, mostDocuments));
  std::vector<Resource> resources;
  for (const RecentDocument& document : documents) {
    if (resources.size() == wanted)
      break;
    if (!contains(action.kind, document.mimeType))
      continue;
    auto resource = makeResource(document);
    if (resource && !(plugin.leavesOutMissingFiles && isMissing(*resource)))
      resources.push_back(std::move(*resource));
  }
  return resources;
}

}  // namespace RecentFiles
