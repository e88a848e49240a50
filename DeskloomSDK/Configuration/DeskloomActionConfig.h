#pragma once

#include <concepts>
#include <nlohmann/json.hpp>

namespace DeskloomSDK {

/// Can be read from JSON with nlohmann/json's conversions.
template <typename Value>
concept DecodableFromJSON = requires(const nlohmann::json& json, Value& value) { json.get_to(value); };

/// Can be written as JSON with nlohmann/json's conversions.
template <typename Value>
concept EncodableAsJSON = std::constructible_from<nlohmann::json, const Value&>;

/// A configuration value, which the host keeps for a plug-in: a plain record that can be read from JSON, written as
/// JSON, and made without arguments, which yields its default value.
///
///     struct Options {
///       int count = 10;
///     };
///     NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Options, count)
template <typename Value>
concept DeskloomActionConfig =
    DecodableFromJSON<Value> && EncodableAsJSON<Value> && std::default_initializable<Value> && std::copyable<Value>;

/// Stops the compilation with a message for each requirement that `Value` does not meet.
template <typename Value>
struct RequireActionConfig {
  static_assert(DecodableFromJSON<Value>,
                "A configuration value must be readable from JSON: give it a function "
                "from_json(const nlohmann::json&, Value&), or NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE.");
  static_assert(EncodableAsJSON<Value>,
                "A configuration value must be writable as JSON: give it a function "
                "to_json(nlohmann::json&, const Value&), or NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE.");
  static_assert(std::default_initializable<Value>,
                "A configuration value must have a constructor without arguments, which yields its default value.");
  static_assert(std::copyable<Value>, "A configuration value must be copyable.");
};

}  // namespace DeskloomSDK
