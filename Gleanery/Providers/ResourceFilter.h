#pragma once

#include <vector>

#include "DeskloomSDK/Resources/Resource.h"

namespace Gleanery {

/// Whether a resource is for the host: false for the browsers' own favourites and history pages and Google Chrome's
/// internal pages, told by their scheme, case-sensitively. A URL without a scheme is allowed.
bool isAllowed(const DeskloomSDK::Resource& resource);

/// The allowed ones of `resources`, in their order.
std::vector<DeskloomSDK::Resource> allowedResources(std::vector<DeskloomSDK::Resource> resources);

}  // namespace Gleanery
