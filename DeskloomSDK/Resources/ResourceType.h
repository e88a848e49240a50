#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

namespace DeskloomSDK {

/// The kind of thing that a resource is. The order of the cases is fixed.
enum class ResourceType { file, folder, website, terminal, application, url };

/// The raw string of a type: "file", "folder", "website", "terminal", "application" or "url".
std::string_view rawValue(ResourceType type);

/// The type with exactly this raw string; `nullopt` if there is none.
std::optional<ResourceType> resourceType(std::string_view rawValue);

}  // namespace DeskloomSDK

/// The hash of a type's raw string.
template <>
struct std::hash<DeskloomSDK::ResourceType> {
  /// Never fails.
  std::size_t operator()(DeskloomSDK::ResourceType type) const noexcept {
    return std::hash<std::string_view>()(DeskloomSDK::rawValue(type));
  }
};
