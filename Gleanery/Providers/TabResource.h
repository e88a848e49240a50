#pragma once

#include <string_view>

#include "DeskloomSDK/Resources/Resource.h"

namespace Gleanery {

/// The resource of a browser's tab: type website, at the URL that `location` spells. A tab's address is always a URL;
/// where it is none, the process stops.
DeskloomSDK::Resource makeTabResource(std::string_view name, std::string_view location);

}  // namespace Gleanery
