#include "DeskloomSDK/Resources/Resource.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <utility>

namespace DeskloomSDK {

namespace {

using nlohmann::json;
using nlohmann::ordered_json;
using Kind = DecodingError::Kind;
using enum Resource::CodingKeys;

constexpr std::array<std::string_view, 3> stringValues = {"type", "name", "url"};

std::unexpected<DecodingError> failure(Kind kind, Resource::CodingKeys key) {
  return std::unexpected(DecodingError{kind, std::string(stringValue(key))});
}

template <typename JSON>
std::expected<std::string, DecodingError> decodeString(const JSON& object, Resource::CodingKeys key) {
  const auto found = object.find(stringValue(key));
  if (found == object.end())
    return failure(Kind::keyNotFound, key);
  if (!found->is_string())
    return failure(Kind::typeMismatch, key);
  return found->template get<std::string>();
}

template <typename JSON>
std::expected<Resource, DecodingError> decodeObject(const JSON& object) {
  if (!object.is_object())
    return std::unexpected(DecodingError{Kind::typeMismatch, {}});

  const auto rawType = decodeString(object, type);
  if (!rawType)
    return std::unexpected(rawType.error());
  const auto decodedType = resourceType(*rawType);
  if (!decodedType)
    return failure(Kind::dataCorrupted, type);

  auto decodedName = decodeString(object, name);
  if (!decodedName)
    return std::unexpected(decodedName.error());

  const auto text = decodeString(object, url);
  if (!text)
    return std::unexpected(text.error());
  auto decodedURL = Platform::URL::parse(*text);
  if (!decodedURL)
    return failure(Kind::dataCorrupted, url);

  return Resource(*decodedType, std::move(*decodedName), std::move(*decodedURL));
}

/// Throws the library's exception for such a failure, with its numbers and texts.
template <typename JSON>
[[noreturn]] void throwAsTheLibraryDoes(const DecodingError& error, const JSON& object) {
  switch (error.kind) {
    case Kind::keyNotFound:
      throw json::out_of_range::create(403, "key '" + error.key + "' not found", &object);
    case Kind::typeMismatch:
      throw json::type_error::create(
          302, error.key.empty() ? "type must be object" : "type of '" + error.key + "' must be string", &object);
    case Kind::dataCorrupted:
      break;
  }
  throw json::other_error::create(501, "'" + error.key + "' of a resource is invalid", &object);
}

template <typename JSON>
Resource decodeOrThrow(const JSON& object) {
  auto resource = Resource::decode(object);
  if (!resource)
    throwAsTheLibraryDoes(resource.error(), object);
  return std::move(*resource);
}

template <typename JSON>
void encodeObject(JSON& object, const Resource& resource) {
  object[stringValue(type)] = rawValue(resource.type());
  object[stringValue(name)] = resource.name();
  object[stringValue(url)] = resource.url().absoluteString();
}

std::expected<void, EncodingError> append(std::string& text, const Resource& resource) {
  const std::array<std::string_view, stringValues.size()> values = {rawValue(resource.type()), resource.name(),
                                                                    resource.url().absoluteString()};
  char separator = '{';
  for (std::size_t index = 0; index < values.size(); ++index) {
    text.append({separator, '"'}).append(stringValues[index]).append("\":");
    if (auto appended = appendString(text, values[index]); !appended)
      return appended;
    separator = ',';
  }
  text += '}';
  return {};
}

/// The approximate length of the text: exact if nothing needs an escape but the slashes of web addresses.
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
  return decodeObject(object);
}

std::expected<Resource, DecodingError> Resource::decode(const ordered_json& object) {
  return decodeObject(object);
}

std::string_view stringValue(Resource::CodingKeys key) {
  return stringValues.at(static_cast<std::size_t>(key));
}

std::optional<int> intValue(Resource::CodingKeys /*key*/) {
  return std::nullopt;
}

std::optional<Resource::CodingKeys> codingKey(std::string_view stringValue) {
  const auto* found = std::ranges::find(stringValues, stringValue);
  if (found == stringValues.end())
    return std::nullopt;
  return static_cast<Resource::CodingKeys>(found - stringValues.begin());
}

std::optional<Resource::CodingKeys> codingKey(int /*intValue*/) {
  return std::nullopt;
}

std::expected<std::string, EncodingError> encodeResources(const std::vector<Resource>& resources) {
  std::string text;
  text.reserve(estimatedLength(resources));
  text += '[';
  for (const Resource& resource : resources) {
    if (text.size() > 1)
      text += ',';
    if (auto appended = append(text, resource); !appended)
      return std::unexpected(std::move(appended.error()));
  }
  text += ']';
  return text;
}

std::expected<std::vector<Resource>, DecodingError> decodeResources(std::string_view text) {
  const auto array = decodeJSON(text);
  if (!array)
    return std::unexpected(array.error());
  if (!array->is_array())
    return std::unexpected(DecodingError{Kind::typeMismatch, {}});

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

namespace nlohmann {

using DeskloomSDK::Resource;

Resource adl_serializer<Resource>::from_json(const json& object) {
  return DeskloomSDK::decodeOrThrow(object);
}

Resource adl_serializer<Resource>::from_json(const ordered_json& object) {
  return DeskloomSDK::decodeOrThrow(object);
}

void adl_serializer<Resource>::to_json(json& object, const Resource& resource) {
  DeskloomSDK::encodeObject(object, resource);
}

void adl_serializer<Resource>::to_json(ordered_json& object, const Resource& resource) {
  DeskloomSDK::encodeObject(object, resource);
}

}  // namespace nlohmann
