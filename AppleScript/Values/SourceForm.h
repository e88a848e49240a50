#pragma once

#include <string>

#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// `value` as a script would write it: `{1, "a", {name:"x"}}`. Lists and records deeper than `maximumNesting` are
/// written as "…".
[[nodiscard]] std::string sourceForm(const Value& value);

/// The same for error messages. A long form is cut and ends with "…".
[[nodiscard]] std::string shortSourceForm(const Value& value);

}  // namespace AppleScript
