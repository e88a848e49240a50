#include "DeskloomSDK/JSON/JSONText.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <utility>

#include "Platform/Text/UTF8.h"

namespace DeskloomSDK {

namespace {

using nlohmann::json;

/// A value is read and written recursively, so its depth is limited by the stack.
constexpr std::size_t mostLevels = 512;

/// The depth to which arrays and objects are nested in JSON text. For other text, any number.
std::size_t depth(std::string_view text) {
  std::size_t level = 0;
  std::size_t deepest = 0;
  bool isInString = false;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char character = text[index];
    if (character == '"')
      isInString = !isInString;
    else if (isInString)
      index += character == '\\' ? 1 : 0;
    else if (character == '[' || character == '{')
      deepest = std::max(deepest, ++level);
    else if ((character == ']' || character == '}') && level > 0)
      --level;
  }
  return deepest;
}

bool isFinite(const json& value) {
  if (value.is_structured())
    return std::ranges::all_of(value, isFinite);
  return !value.is_number_float() || std::isfinite(value.get<double>());
}

/// Appends finished JSON text with every '/' written as "\/". In JSON text, a '/' is always inside a string.
void appendEscapingSlashes(std::string& output, std::string_view text) {
  for (auto slash = text.find('/'); slash != std::string_view::npos; slash = text.find('/')) {
    output.append(text.substr(0, slash)).append("\\/");
    text.remove_prefix(slash + 1);
  }
  output += text;
}

/// Whether the text is in a JSON string as it is, but for slashes.
bool isItsOwnJSON(std::string_view text) {
  constexpr auto needsEscape = [](char character) {
    return static_cast<unsigned char>(character) < ' ' || character == '"' || character == '\\';
  };
  return std::ranges::none_of(text, needsEscape) && Platform::isUTF8(text);
}

}  // namespace

std::expected<void, EncodingError> appendString(std::string& output, std::string_view text) {
  // Most texts need no escapes, which the library takes ten times as long to find out.
  if (isItsOwnJSON(text)) {
    output += '"';
    appendEscapingSlashes(output, text);
    output += '"';
    return {};
  }
  const auto encoded = encodeJSON(text);
  if (!encoded)
    return std::unexpected(encoded.error());
  output += *encoded;
  return {};
}

std::expected<std::string, EncodingError> encodeJSON(const json& value) {
  if (!isFinite(value))
    return std::unexpected(EncodingError{"a number is not finite"});
  try {
    std::string text;
    appendEscapingSlashes(text, value.dump());
    return text;
  } catch (const json::exception& failure) {
    return std::unexpected(EncodingError{failure.what()});
  }
}

std::expected<json, DecodingError> decodeJSON(std::string_view text) {
  const auto corrupted = std::unexpected(DecodingError{DecodingError::Kind::dataCorrupted, {}});
  if (depth(text) > mostLevels)
    return corrupted;
  json value = json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (value.is_discarded())
    return corrupted;
  return value;
}

}  // namespace DeskloomSDK
