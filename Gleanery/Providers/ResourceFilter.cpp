#include "Gleanery/Providers/ResourceFilter.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Gleanery {

namespace {

// The last has a colon, so it never equals a scheme: about: pages are allowed.
constexpr std::array<std::string_view, 5> excludedSchemes = {"favourites", "favorites", "history", "chrome",
                                                             "about:preferences"};

}  // namespace

bool isAllowed(const DeskloomSDK::Resource& resource) {
  const auto scheme = resource.url().scheme();
  return !scheme || std::ranges::find(excludedSchemes, *scheme) == excludedSchemes.end();
}

std::vector<DeskloomSDK::Resource> allowedResources(std::vector<DeskloomSDK::Resource> resources) {
  std::erase_if(resources, [](const auto& resource) { return !isAllowed(resource); });
  return resources;
}

}  // namespace Gleanery
