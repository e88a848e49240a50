#include "DeskloomSDK/Resource.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "DeskloomSDK/JSONText.h"

namespace DeskloomSDK {

namespace {

using nlohmann::json;

namespace CodingKeys {
constexpr const char* type = "type";
constexpr const char* name = "name";
constexpr const char* url = "url";
}  // namespace CodingKeys

std::expected<std::string, DecodingError> decodeString(const json& object, const char* key) {
  const auto found = object.find(key);
  if (found == object.end())
    return std::unexpected(DecodingError{DecodingError::Kind::keyNotFound, key});
  if (!found->is_string())
    return std::unexpected(DecodingError{DecodingError::Kind::typeMismatch, key});
  return found->get<std::string>();
}

std::unexpected<DecodingError> corrupted(std::string key) {
  return std::unexpected(DecodingError{DecodingError::Kind::dataCorrupted, std::move(key)});
}

/// About how long the text will be; exact where nothing in it needs an escape but the slashes of a web address.
std::size_t estimatedLength(const std::vector<Resource>& resources) {
  constexpr std::size_t punctuation = std::string_view(R"({"type":"application","name":"","url":"\/\/\/\/"},)").size();
  std::size_t length = 2;
  for (const Resource& resource : resources)
    length += resource.name().size() + resource.url().absoluteString().size() + punctuation;
  return length;
}

}  // namespace

Resource::Resource(ResourceType type, std::string name, Platform::URL url)
    : type_(type), name_(std::move(name)), url_(std::move(url)) {}

std::expected<Resource, DecodingError> Resource::decode(const json& object) {
  if (!object.is_object())
    return std::unexpected(DecodingError{DecodingError::Kind::typeMismatch, {}});

  const auto rawType = decodeString(object, CodingKeys::type);
  if (!rawType)
    return std::unexpected(rawType.error());
  const auto type = resourceType(*rawType);
  if (!type)
    return corrupted(CodingKeys::type);

  auto name = decodeString(object, CodingKeys::name);
  if (!name)
    return std::unexpected(name.error());

  const auto text = decodeString(object, CodingKeys::url);
  if (!text)
    return std::unexpected(text.error());
  auto url = Platform::URL::parse(*text);
  if (!url)
    return corrupted(CodingKeys::url);

  return Resource(*type, std::move(*name), std::move(*url));
}

void to_json(nlohmann::ordered_json& object, const Resource& resource) {
  object[CodingKeys::type] = rawValue(resource.type());
  object[CodingKeys::name] = resource.name();
  object[CodingKeys::url] = resource.url().absoluteString();
}

std::expected<std::string, EncodingError> encodeResources(const std::vector<Resource>& resources) {
  std::string text;
  text.reserve(estimatedLength(resources));
  text += '[';
  try {
    for (const Resource& resource : resources) {
      if (text.size() > 1)
        text += ',';
      appendEscapingSlashes(text, nlohmann::ordered_json(resource).dump());
    }
  } catch (const json::exception& failure) {
    return std::unexpected(EncodingError{failure.what()});
  }
  text += ']';
  return text;
}

std::expected<std::vector<Resource>, DecodingError> decodeResources(std::string_view text) {
  const auto array = decodeJSON(text);
  if (!array)
    return std::unexpected(array.error());
  if (!array->is_array())
    return std::unexpected(DecodingError{DecodingError::Kind::typeMismatch, {}});

  std::vector<Resource> resources;
  resources.reserve(array->size());
  for (const json& element : *array) {
    auto resource = Resource::decode(element);
    if (!resource)
      return std::unexpected(resource.error());
    resources.push_back(std::move(*resource));
  }
  return resources;
}

}  // namespace DeskloomSDK
