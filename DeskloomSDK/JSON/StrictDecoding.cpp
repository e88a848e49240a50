#include "DeskloomSDK/JSON/StrictDecoding.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <deque>
#include <limits>
#include <utility>

namespace DeskloomSDK {

namespace {

using nlohmann::json;

/// The integer equal to a floating-point number; `nullopt` for fractions and for integers of more than 64 bits. Also
/// `nullopt` for the least 64-bit integer, since the parser turns integers below it into the same number.
std::optional<json> integer(double number) {
  constexpr double end = 0x1p64;
  if (std::trunc(number) != number || number <= -end / 2 || number >= end)
    return std::nullopt;
  if (number < 0)
    return static_cast<std::int64_t>(number);
  return static_cast<std::uint64_t>(number);
}

/// Calls `function` with the number in the C++ type in which the JSON value holds it.
template <typename Function>
auto withNumber(const json& number, const Function& function) {
  if (number.is_number_float())
    return function(number.get<double>());
  if (number.is_number_unsigned())
    return function(number.get<std::uint64_t>());
  return function(number.get<std::int64_t>());
}

bool isSameInteger(const json& one, const json& other) {
  return withNumber(one, [&](auto number) {
    if constexpr (std::is_floating_point_v<decltype(number)>) {
      const auto whole = integer(number);
      return whole && isSameInteger(*whole, other);
    } else {
      return other.is_number_unsigned() ? std::cmp_equal(number, other.get<std::uint64_t>())
                                        : std::cmp_equal(number, other.get<std::int64_t>());
    }
  });
}

/// Whether the number, rounded to double or single precision, is `written`.
bool roundsTo(const json& read, double written) {
  return withNumber(read, [&](auto exact) {
    const auto number = static_cast<double>(exact);
    const bool hasRoom = std::abs(number) <= std::numeric_limits<float>::max();
    return number == written || (hasRoom && static_cast<double>(static_cast<float>(exact)) == written);
  });
}

bool isSameNumber(const json& read, const json& written, bool ignoresFractions) {
  if (!written.is_number_float())
    return isSameInteger(read, written);
  return ignoresFractions || roundsTo(read, written.get<double>());
}

bool isNumeric(const json& value) {
  return value.is_number() || value.is_boolean();
}

/// Whether both are numbers or booleans, or both of the same type.
bool areAlike(const json& one, const json& other) {
  return one.type() == other.type() || (isNumeric(one) && isNumeric(other));
}

/// Whether each element of `written` was in `read`, and each number of `read` is in `written`. The order may change and
/// duplicates may be gone, as in a set.
bool keepsNumbersOfElements(const json& read, const json& written, bool ignoresFractions) {
  const auto isKept = [&](const json& element, const json& result) {
    return areAlike(element, result) && keepsNumbers(element, result, ignoresFractions);
  };
  std::deque<const json*> left;
  for (const json& element : read)
    left.push_back(&element);
  for (std::size_t index = 0; index < std::min(read.size(), written.size()); ++index) {
    const json& result = written[index];
    if (!areAlike(read[index], result))
      continue;
    const auto found = std::ranges::find_if(left, [&](const json* element) { return isKept(*element, result); });
    if (found == left.end())
      return false;
    left.erase(found);
  }
  return written.size() >= read.size() || std::ranges::all_of(left, [&](const json* element) {
           return !isNumeric(*element) ||
                  std::ranges::any_of(written, [&](const json& result) { return isKept(*element, result); });
         });
}

bool keepsNumbersOfMembers(const json& read, const json& written, bool ignoresFractions) {
  return std::ranges::all_of(read.items(), [&](const auto& member) {
    const auto result = written.find(member.key());
    return result == written.end() || keepsNumbers(member.value(), *result, ignoresFractions);
  });
}

/// Makes the numbers convertible. Yields whether any has changed.
bool makeConvertible(json& value) {
  if (value.is_structured()) {
    bool isChanged = false;
    for (json& element : value)
      isChanged = makeConvertible(element) || isChanged;
    return isChanged;
  }
  // The fractions furthest from zero that can be converted to an unsigned or an 8-bit integer, too.
  constexpr double least = -0.5;
  constexpr double most = 127.5;
  if (!value.is_number_float())
    return false;
  const auto number = value.get<double>();
  if (least <= number && number <= most)
    return false;
  value = integer(number).value_or(std::clamp(number, least, most));
  return true;
}

}  // namespace

bool keepsNumbers(const json& read, const json& written, bool ignoresFractions) {
  if (isNumeric(read) && written.is_number())
    return read.is_number() && isSameNumber(read, written, ignoresFractions);
  if (read.is_object() && written.is_object())
    return keepsNumbersOfMembers(read, written, ignoresFractions);
  if (read.is_array() && written.is_array())
    return keepsNumbersOfElements(read, written, ignoresFractions);
  return true;
}

std::optional<json> withConvertibleNumbers(json value) {
  if (!makeConvertible(value))
    return std::nullopt;
  return value;
}

}  // namespace DeskloomSDK
