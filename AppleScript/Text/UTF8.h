#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// UTF-8 by character. Malformed text does no harm: a malformed byte counts as one character or as part of one.
namespace AppleScript::UTF8 {

/// Whether `byte` continues a character that an earlier byte began.
[[nodiscard]] constexpr bool isContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The number of characters in `text`.
[[nodiscard]] std::size_t count(std::string_view text);

/// The offset `characters` characters after `offset`, or the size of `text` if there are fewer.
[[nodiscard]] std::size_t skip(std::string_view text, std::size_t offset, std::size_t characters);

/// Yields the character at `offset`, which must be within `text`, and moves `offset` to the next one. A malformed byte
/// yields U+FFFD.
[[nodiscard]] char32_t decode(std::string_view text, std::size_t& offset);

/// Appends `character` to `text`.
void append(std::string& text, char32_t character);

/// The offset of the first byte that is not well-formed UTF-8, or `nullopt` if all of `text` is.
[[nodiscard]] std::optional<std::size_t> firstMalformed(std::string_view text);

}  // namespace AppleScript::UTF8
