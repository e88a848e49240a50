#pragma once

#include <expected>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "DeskloomSDK/DecodingError.h"
#include "DeskloomSDK/ResourceType.h"
#include "Platform/URL.h"

namespace DeskloomSDK {

/// One thing that the host can keep: the unit of exchange between a plug-in and the host. Immutable.
class Resource {
 public:
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

 private:
  ResourceType type_;
  std::string name_;
  Platform::URL url_;
};

/// Writes the resource as a JSON object: keys "type", "name" and "url", in this order.
void to_json(nlohmann::ordered_json& object, const Resource& resource);

/// The resources as the text of a JSON array, in their order: compact, UTF-8, every '/' inside a string written as
/// "\/". Fails where a name is not valid UTF-8.
std::expected<std::string, EncodingError> encodeResources(const std::vector<Resource>& resources);

/// Reads such a text. Fails as a whole where it is not a JSON array or any one element fails.
std::expected<std::vector<Resource>, DecodingError> decodeResources(std::string_view text);

}  // namespace DeskloomSDK
