#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// Numbers as the language writes them: 7, 1.0, 0.1, 1.0E+20.
[[nodiscard]] std::string numberText(std::int64_t number);
[[nodiscard]] std::string numberText(double number);

/// The number that all of `text` spells, blanks around it aside: an integer where it has neither a point nor an
/// exponent and is small enough, otherwise a real. None where it spells no number.
[[nodiscard]] std::optional<Value> numberFromText(std::string_view text);

}  // namespace AppleScript
