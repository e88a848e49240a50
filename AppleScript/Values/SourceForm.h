#pragma once

#include <string>

#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// `value` as the language writes it: `{1, "a", {name:"x"}}`. Lists and records that nest deeper than `maximumNesting`
/// end in "…".
[[nodiscard]] std::string sourceForm(const Value& value);

/// The same for use within an error message: cut short with "…" where it is long.
[[nodiscard]] std::string shortSourceForm(const Value& value);

}  // namespace AppleScript
