#pragma once

#include <compare>
#include <string>
#include <string_view>

/// Text without regard to case, for the scripts whose letters have simple counterparts: Latin, Greek, Cyrillic,
/// Armenian.
namespace AppleScript {

/// The lower-case counterpart of `character`, or itself.
[[nodiscard]] char32_t foldCase(char32_t character);

/// `text` with every character folded.
[[nodiscard]] std::string foldCase(std::string_view text);

/// The order of two texts by their folded characters.
[[nodiscard]] std::strong_ordering compareIgnoringCase(std::string_view left, std::string_view right);

}  // namespace AppleScript
