#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// UTF-8 by the character. Malformed bytes are met without harm: each counts as a character of its own at most.
namespace AppleScript::UTF8 {

/// Whether `byte` continues a character that an earlier byte began.
[[nodiscard]] constexpr bool isContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The number of characters in `text`.
[[nodiscard]] std::size_t count(std::string_view text);

/// The offset that lies `characters` characters behind `offset`, or the end of `text` where there are fewer.
[[nodiscard]] std::size_t skip(std::string_view text, std::size_t offset, std::size_t characters);

/// Reads the character at `offset`, which must lie within `text`, and moves `offset` behind it. Malformed input reads
/// as U+FFFD.
[[nodiscard]] char32_t decode(std::string_view text, std::size_t& offset);

/// Adds `character` to the end of `text`.
void append(std::string& text, char32_t character);

/// The offset of the first byte that is not well-formed UTF-8; none where all of `text` is.
[[nodiscard]] std::optional<std::size_t> firstMalformed(std::string_view text);

}  // namespace AppleScript::UTF8
