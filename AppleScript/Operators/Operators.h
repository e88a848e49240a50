#pragma once

#include <cstdint>
#include <string_view>

#include "AppleScript/Values/Value.h"

namespace AppleScript {

enum class Operator : std::uint8_t {
  power,
  multiply,
  divide,
  integerDivide,
  remainder,
  add,
  subtract,
  concatenate,
  coerce,
  less,
  lessOrEqual,
  greater,
  greaterOrEqual,
  equal,
  notEqual,
  contains,
  doesNotContain,
  isIn,
  isNotIn,
  startsWith,
  doesNotStartWith,
  endsWith,
  doesNotEndWith,
  logicalAnd,
  logicalOr,
};

/// How several operators of one precedence in a row group; with `none`, they can't follow each other.
enum class Associativity : std::uint8_t { left, right, none };

/// `left op right`. `delimiter` separates the items of a list that becomes text.
[[nodiscard]] Value applied(Operator op, const Value& left, const Value& right, std::string_view delimiter);

/// `left op right` for the arithmetic operators. Both sides are coerced to numbers. An integer result that is too large
/// becomes a real. Throws -2701 for a division by zero, -2702 if the result is too large for a real.
[[nodiscard]] Value calculate(Operator op, const Value& left, const Value& right);

/// `-value`.
[[nodiscard]] Value negated(const Value& value);

/// `left & right`: a text if `left` is a text, a record if both are records, otherwise a list. Fields of `right` that
/// `left` has too are left out. `delimiter` separates the items if `right` is a list that becomes text.
[[nodiscard]] Value concatenated(const Value& left, const Value& right, std::string_view delimiter);

}  // namespace AppleScript
