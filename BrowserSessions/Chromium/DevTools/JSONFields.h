#pragma once

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace BrowserSessions {

/// The field of a JSON object; null if it has none, or is not an object.
inline const nlohmann::json& field(const nlohmann::json& object, const char* key) {
  static const nlohmann::json null;
  const auto found = object.is_object() ? object.find(key) : object.end();
  return found != object.end() ? *found : null;
}

/// The text of a field; empty if it has none.
inline std::string textField(const nlohmann::json& object, const char* key) {
  const auto* text = field(object, key).get_ptr<const std::string*>();
  return text != nullptr ? *text : std::string();
}

/// The integer in a field; `nullopt` if it has none, or one of more than 32 bits.
inline std::optional<std::int32_t> integerField(const nlohmann::json& object, const char* key) {
  using Limits = std::numeric_limits<std::int32_t>;
  const nlohmann::json& value = field(object, key);
  const bool isInRange = value.is_number_integer() && value >= Limits::min() && value <= Limits::max();
  return isInRange ? std::optional(value.get<std::int32_t>()) : std::nullopt;
}

}  // namespace BrowserSessions
