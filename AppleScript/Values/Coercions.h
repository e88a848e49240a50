#pragma once

#include <cstdint>
#include <string_view>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"

/// From one class of values to another. All of them read through references to items, and throw -1700 for what cannot
/// be coerced, -2706 for lists that nest too deep.
namespace AppleScript {

/// `value as text`. A list is its items with `delimiter` between them.
[[nodiscard]] Text toText(const Value& value, std::string_view delimiter = {});

/// An integer or a real.
[[nodiscard]] Value toNumber(const Value& value);
[[nodiscard]] double toReal(const Value& value);
/// The nearest integer.
[[nodiscard]] std::int64_t toInteger(const Value& value);
[[nodiscard]] bool toBoolean(const Value& value);
/// The list itself, the values of a record, or a list of this one value.
[[nodiscard]] List toList(const Value& value);
[[nodiscard]] File toFile(const Value& value);

/// `value as target`, with `delimiter` between the items of a list that becomes text.
[[nodiscard]] Value coerce(const Value& value, const ClassDescription& target, std::string_view delimiter);

}  // namespace AppleScript
