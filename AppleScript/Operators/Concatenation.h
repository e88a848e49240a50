#pragma once

#include <string_view>

#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// `left & right`: two texts where `left` is a text, the fields of both where both are records, otherwise the list of
/// both sides' items. Appending to a text that nothing was appended to before does not copy it. `delimiter` joins the
/// items where `right` is a list that becomes text.
[[nodiscard]] Value concatenated(const Value& left, const Value& right, std::string_view delimiter);

}  // namespace AppleScript
