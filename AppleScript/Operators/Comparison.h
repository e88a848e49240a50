#pragma once

#include <compare>

#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// `left = right`: numbers by value, text without regard to case, lists and records part by part. Values of different
/// kinds are never equal; a reference to an item is equal only to another reference to it.
[[nodiscard]] bool areEqual(const Value& left, const Value& right);

/// The order of two numbers or two texts; `right` is coerced to what `left` is. Throws -1700 for what has no order.
[[nodiscard]] std::partial_ordering order(const Value& left, const Value& right);

/// `whole contains part` and its kin: a stretch of a text or of a list, or fields of a record. A part that is no list
/// is a list of one.
[[nodiscard]] bool contains(const Value& whole, const Value& part);
[[nodiscard]] bool startsWith(const Value& whole, const Value& part);
[[nodiscard]] bool endsWith(const Value& whole, const Value& part);

}  // namespace AppleScript
