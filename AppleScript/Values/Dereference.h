#pragma once

#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// What `value` refers to: the item itself for a reference to an item of a list, any other value as it is. Throws -1728
/// where the list has no such item any more, -2706 where references lead on without end. Valid until the list changes.
[[nodiscard]] const Value& dereferenced(const Value& value);
[[nodiscard]] const Value& dereferenced(const ItemReference& reference);

}  // namespace AppleScript
