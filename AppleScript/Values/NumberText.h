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

/// Parses a number, which may be surrounded by whitespace. It is an integer if it has no point and no exponent and
/// fits, otherwise a real. `nullopt` if the text is not a number.
[[nodiscard]] std::optional<Value> numberFromText(std::string_view text);

}  // namespace AppleScript
