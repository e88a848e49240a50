#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "AppleScript/References/Elements.h"
#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// The index of the first element whose property `property` equals `value`; elements without that property are passed
/// by.
[[nodiscard]] std::optional<std::size_t> findByProperty(Run& run, const Elements& elements, std::string_view property,
                                                        const Value& value);

}  // namespace AppleScript
