#pragma once

#include <nlohmann/json.hpp>
#include <optional>

namespace DeskloomSDK {

/// Whether a value that was read from `read` and written to `written` has kept its numbers. A boolean is no number, 1.0
/// equals 1, and a floating-point number may be rounded to single precision. Keys and elements that only one of the two
/// has don't matter, nor does the order of a set. If `ignoresFractions` is set, a floating-point number may become any
/// other.
bool keepsNumbers(const nlohmann::json& read, const nlohmann::json& written, bool ignoresFractions = false);

/// The JSON with each floating-point number that may be out of an integer type's range replaced, so that all of them
/// can be converted to any arithmetic type: by the integer equal to it, or else by the nearest number in range.
/// `nullopt` if there is no such number.
std::optional<nlohmann::json> withConvertibleNumbers(nlohmann::json value);

/// Reads a value with nlohmann/json's conversions, but without their silent changes to numbers: `nullopt` if the JSON
/// has a boolean, a fraction or a number out of range for an integer. Throws what the conversions throw.
///
/// The conversions do not report such changes, so the value is written again and compared. Converting a floating-point
/// number to an integer type without room for it is undefined, so the value is first read with other numbers.
template <typename Value>
std::optional<Value> decodeStrictly(const nlohmann::json& json) {
  if (const auto convertible = withConvertibleNumbers(json)) {
    Value attempt{};
    convertible->get_to(attempt);
    if (!keepsNumbers(*convertible, nlohmann::json(attempt), /*ignoresFractions=*/true))
      return std::nullopt;
  }
  Value value{};
  json.get_to(value);
  if (!keepsNumbers(json, nlohmann::json(value)))
    return std::nullopt;
  return value;
}

}  // namespace DeskloomSDK
