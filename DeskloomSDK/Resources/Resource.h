#pragma once

#include <expected>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DeskloomSDK/JSON/DecodingError.h"
#include "DeskloomSDK/Resources/ResourceType.h"
#include "Platform/Text/URL.h"

namespace DeskloomSDK {

/// One thing that the host can keep: the unit of exchange between a plug-in and the host. Immutable.
///
/// It has nlohmann/json's conversions: `nlohmann::json(resource)` writes it, and `json.get<Resource>()` reads it or
/// throws one of the library's exceptions, as reading any other type does. So a `std::vector<Resource>` can be a field
/// of a configuration.
class Resource {
 public:
  /// The keys of a resource's JSON object, in the order in which they are written.
  enum class CodingKeys { type, name, url };

  /// Stores the three as they are. `name` is what the user reads, `url` where the resource is.
  Resource(ResourceType type, std::string name, Platform::URL url);

  /// What the host takes it for.
  [[nodiscard]] ResourceType type() const { return type_; }
  /// What the user reads; any text.
  [[nodiscard]] const std::string& name() const { return name_; }
  /// Where it is: a file URL for what lies on disk.
  [[nodiscard]] const Platform::URL& url() const { return url_; }

  /// Reads a resource from a JSON object with the string keys "type", "name" and "url"; other keys are ignored. Fails
  /// over the first of the three, in this order, that is missing, not a string, or a string that names no type or is no
  /// URL.
  static std::expected<Resource, DecodingError> decode(const nlohmann::json& object);
  /// The same for an object that keeps the order of its keys.
  static std::expected<Resource, DecodingError> decode(const nlohmann::ordered_json& object);

 private:
  ResourceType type_;
  std::string name_;
  Platform::URL url_;
};

/// The string of a key: "type", "name", "url".
std::string_view stringValue(Resource::CodingKeys key);

/// The integer of a key: always `nullopt`, since the keys of a JSON object are strings.
std::optional<int> intValue(Resource::CodingKeys key);

/// The key of this string, by exact match; `nullopt` for any other string.
std::optional<Resource::CodingKeys> codingKey(std::string_view stringValue);

/// The key of this integer: always `nullopt`.
std::optional<Resource::CodingKeys> codingKey(int intValue);

/// The resources as the text of a JSON array, in their order: compact, UTF-8, every '/' inside a string written as
/// "\/". Fails where a name is not valid UTF-8.
std::expected<std::string, EncodingError> encodeResources(const std::vector<Resource>& resources);

/// Reads such a text. Fails as a whole where it is not a JSON array or any one element fails.
std::expected<std::vector<Resource>, DecodingError> decodeResources(std::string_view text);

}  // namespace DeskloomSDK

namespace nlohmann {

/// A resource's conversions from and to JSON values.
template <>
struct adl_serializer<DeskloomSDK::Resource> {
  /// Reads a resource as `Resource::decode` does. Throws a `nlohmann::json::exception` if that fails: `out_of_range`
  /// for a key that is missing, `type_error` for a value of another type, `other_error` for a string that names no type
  /// or is no URL. @{
  static DeskloomSDK::Resource from_json(const json& object);
  static DeskloomSDK::Resource from_json(const ordered_json& object);
  /// @}

  /// Reads a resource in place of another. Throws likewise, and then leaves that one as it was.
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
