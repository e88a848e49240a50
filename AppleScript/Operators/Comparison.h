#pragma once

#include <compare>

#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// `left = right`. Numbers are compared by value, texts ignoring case, lists and records item by item. Values of
/// different kinds are never equal. A reference to an item is equal only to a reference to the same item.
[[nodiscard]] bool areEqual(const Value& left, const Value& right);

/// The order of two numbers or two texts; `right` is coerced to the kind of `left`. Throws -1700 if the values have no
/// order.
[[nodiscard]] std::partial_ordering order(const Value& left, const Value& right);

/// `whole contains part` and the like. A text contains texts, ignoring case; a list contains runs of items; a record
/// contains fields. If `whole` is a list, a `part` that is not a list counts as a list of one item.
[[nodiscard]] bool contains(const Value& whole, const Value& part);
[[nodiscard]] bool startsWith(const Value& whole, const Value& part);
[[nodiscard]] bool endsWith(const Value& whole, const Value& part);

}  // namespace AppleScript
