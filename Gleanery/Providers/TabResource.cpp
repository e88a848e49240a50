#include "Gleanery/Providers/TabResource.h"

#include <string>
#include <utility>

#include "Platform/Error.h"

namespace Gleanery {

DeskloomSDK::Resource makeTabResource(std::string_view name, std::string_view location) {
  auto url = Platform::URL::parse(std::string(location));
  if (!url)
    Platform::fatalError("Unexpectedly found no URL in a tab's address.");
  return {DeskloomSDK::ResourceType::website, std::string(name), std::move(*url)};
}

}  // namespace Gleanery
