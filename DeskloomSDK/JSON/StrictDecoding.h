#pragma once

#include <nlohmann/json.hpp>
#include <optional>

namespace DeskloomSDK {

/// Whether the numbers of `read`, from which a value was read, are the same in `written`, which the value writes. A
/// boolean is no number, 1.0 is 1, and a floating-point number may be rounded to single precision. Keys and elements
/// that are in one of the two only don't matter, nor does the order of a set. If `ignoresFractions` is set, a
/// floating-point number may be any other one.
bool keepsNumbers(const nlohmann::json& read, const nlohmann::json& written, bool ignoresFractions = false);

/// The JSON with other numbers instead of those that some integer type has no room for, so that every number may be
/// converted to any arithmetic type: a fraction close by, or the integer that the number is. `nullopt` if there is no
/// such number.
std::optional<nlohmann::json> withConvertibleNumbers(nlohmann::json value);

/// Reads a value with nlohmann/json's conversions, but refuses what they would convert: `nullopt` if an integer's place
/// holds a boolean, a fraction or a number out of the integer's range. Throws what the conversions throw.
///
/// The conversions tell nobody what they do to a number, so the value is written again and compared. Some conversions
/// from floating-point numbers are undefined, so these are tried with other numbers first.
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
