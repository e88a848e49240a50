#pragma once

#include <vector>

#include "DeskloomSDK/Resources/Resource.h"

namespace Gleanery {

/// Whether a resource is sent to the host. False for the browsers' own favourites and history pages and for Google
/// Chrome's internal pages, by their exact scheme. A URL without a scheme is allowed.
bool isAllowed(const DeskloomSDK::Resource& resource);

/// The allowed resources, in their order.
std::vector<DeskloomSDK::Resource> allowedResources(std::vector<DeskloomSDK::Resource> resources);

}  // namespace Gleanery
