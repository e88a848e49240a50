#include "DeskloomSDK/Resources/ResourceType.h"

#include <algorithm>
#include <array>

namespace DeskloomSDK {

namespace {

constexpr std::array<std::string_view, 6> rawValues = {"file", "folder", "website", "terminal", "application", "url"};

}  // namespace

std::string_view rawValue(ResourceType type) {
  return rawValues.at(static_cast<std::size_t>(type));
}

std::optional<ResourceType> resourceType(std::string_view rawValue) {
  const auto* found = std::ranges::find(rawValues, rawValue);
  if (found == rawValues.end())
    return std::nullopt;
  return static_cast<ResourceType>(found - rawValues.begin());
}

}  // namespace DeskloomSDK
