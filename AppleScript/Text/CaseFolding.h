#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace AppleScript {

/// Text without regard to case, for the scripts whose letters have simple counterparts: Latin, Greek, Cyrillic,
/// Armenian.

/// The lower-case counterpart of `character`, or itself.
[[nodiscard]] char32_t foldCase(char32_t character);

/// `text` with every character folded.
[[nodiscard]] std::string foldCase(std::string_view text);

/// The order of two texts by their folded characters.
[[nodiscard]] std::strong_ordering compareIgnoringCase(std::string_view left, std::string_view right);

/// Whether two identifiers or phrases are the same to the language, which ignores the case of their ASCII letters.
[[nodiscard]] bool sameName(std::string_view left, std::string_view right);

/// `name` with its ASCII letters in lower case.
[[nodiscard]] std::string lowerCase(std::string_view name);

}  // namespace AppleScript
