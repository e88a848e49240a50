#pragma once

#include <expected>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DeskloomSDK/JSON/JSONText.h"
#include "DeskloomSDK/Resources/ResourceType.h"
#include "Platform/Text/URL.h"

namespace DeskloomSDK {

/// One thing that the host can keep, such as a file or a web page. Plug-ins send resources to the host. Immutable.
///
/// It has nlohmann/json's conversions: `nlohmann::json(resource)` writes it, and `json.get<Resource>()` reads it or
/// throws one of the library's exceptions. So a `std::vector<Resource>` can be a field of a configuration.
class Resource {
 public:
  /// The keys of a resource's JSON object, in the order in which they are written.
  enum class CodingKeys { type, name, url };

  /// A resource with these three values. `name` is shown to the user, `url` locates the resource.
  Resource(ResourceType type, std::string name, Platform::URL url);

  /// The kind of thing that it is.
  [[nodiscard]] ResourceType type() const { return type_; }
  /// The name that the user sees; any text.
  [[nodiscard]] const std::string& name() const { return name_; }
  /// The location: a file URL for things on disk.
  [[nodiscard]] const Platform::URL& url() const { return url_; }

  /// Reads a resource from a JSON object with the strings "type", "name" and "url", in this order. Ignores other keys.
  /// Fails at the first of the three that is missing, is not a string, or is not a type or URL.
  static std::expected<Resource, DecodingError> decode(const nlohmann::json& object);
  /// The same for an object that keeps the order of its keys.
  static std::expected<Resource, DecodingError> decode(const nlohmann::ordered_json& object);

 private:
  ResourceType type_;
  std::string name_;
  Platform::URL url_;
};

/// The string of a key: "type", "name" or "url".
std::string_view stringValue(Resource::CodingKeys key);

/// The integer of a key: always `nullopt`, since the keys of a JSON object are strings.
std::optional<int> intValue(Resource::CodingKeys key);

/// The key with exactly this string; `nullopt` if there is none.
std::optional<Resource::CodingKeys> codingKey(std::string_view stringValue);

/// The key of this integer: always `nullopt`.
std::optional<Resource::CodingKeys> codingKey(int intValue);

/// The resources as the text of a JSON array, in their order: compact, UTF-8, every '/' inside a string written as
/// "\/". Fails if a name is not valid UTF-8.
std::expected<std::string, EncodingError> encodeResources(const std::vector<Resource>& resources);

/// Reads such a text. Fails if it is not a JSON array or if any element fails.
std::expected<std::vector<Resource>, DecodingError> decodeResources(std::string_view text);

}  // namespace DeskloomSDK

namespace nlohmann {

/// A resource's conversions from and to JSON values.
template <>
struct adl_serializer<DeskloomSDK::Resource> {
  /// Reads a resource as `Resource::decode` does. If that fails, throws a `nlohmann::json::exception`: `out_of_range`
  /// for a missing key, `type_error` for a value of another type, `other_error` for a string that is not a type or URL.
  /// @{
  static DeskloomSDK::Resource from_json(const json& object);
  static DeskloomSDK::Resource from_json(const ordered_json& object);
  /// @}

  /// Reads a resource and assigns it. If that fails, throws the same and leaves `resource` as it was.
  template <typename JSON>
  static void from_json(const JSON& object, DeskloomSDK::Resource& resource) {
    resource = from_json(object);
  }

  /// Writes the resource as an object with the keys "type", "name" and "url", in this order if the object keeps one. @{
  static void to_json(json& object, const DeskloomSDK::Resource& resource);
  static void to_json(ordered_json& object, const DeskloomSDK::Resource& resource);
  /// @}
};

}  // namespace nlohmann
