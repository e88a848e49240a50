#pragma once

#include "AppleScript/Operators/Operators.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// `left op right` for the operators of numbers, both sides coerced to numbers. Integers that grow too large become
/// reals. Throws -2701 where `right` divides and is zero, -2702 where the result is too large for a real.
[[nodiscard]] Value calculate(Operator op, const Value& left, const Value& right);

/// `-value`.
[[nodiscard]] Value negated(const Value& value);

}  // namespace AppleScript
