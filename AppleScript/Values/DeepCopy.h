#pragma once

#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// `value` with lists and records of its own, at every depth; what was shared among them is shared in the copy too.
/// Throws -2706 where they nest too deep or hold themselves.
[[nodiscard]] Value deepCopy(const Value& value);

}  // namespace AppleScript
