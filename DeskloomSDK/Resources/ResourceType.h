#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

namespace DeskloomSDK {

/// What kind of thing a resource is. The order of the cases is fixed.
enum class ResourceType { file, folder, website, terminal, application, url };

/// The raw string of a type: "file", "folder", "website", "terminal", "application", "url".
std::string_view rawValue(ResourceType type);

/// The type of this raw string, by exact match; none for any other string.
std::optional<ResourceType> resourceType(std::string_view rawValue);

}  // namespace DeskloomSDK

/// A type hashes as its raw string does.
template <>
struct std::hash<DeskloomSDK::ResourceType> {
  /// Never fails.
  std::size_t operator()(DeskloomSDK::ResourceType type) const noexcept {
    return std::hash<std::string_view>()(DeskloomSDK::rawValue(type));
  }
};
