#pragma once

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace BrowserSessions {

/// A field of a JSON object; null where there is none, or this is no object.
inline const nlohmann::json& field(const nlohmann::json& object, const char* key) {
  static const nlohmann::json null;
  const auto found = object.is_object() ? object.find(key) : object.end();
  return found != object.end() ? *found : null;
}

/// A field's text; empty where it has none.
inline std::string textField(const nlohmann::json& object, const char* key) {
  const auto* text = field(object, key).get_ptr<const std::string*>();
  return text != nullptr ? *text : std::string();
}

/// A field's whole number; none where it has none, or one of more than 32 bits.
inline std::optional<std::int32_t> integerField(const nlohmann::json& object, const char* key) {
  using Limits = std::numeric_limits<std::int32_t>;
  const nlohmann::json& value = field(object, key);
  const bool isInRange = value.is_number_integer() && value >= Limits::min() && value <= Limits::max();
  return isInRange ? std::optional(value.get<std::int32_t>()) : std::nullopt;
}

}  // namespace BrowserSessions
