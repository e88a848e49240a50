#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace DesktopSupport {

/// The text as one line of valid UTF-8: a line break (LF, CR, CR LF as one, VT, FF, NEL, U+2028, U+2029) or tab becomes
/// a space, other control characters (NUL among them) are dropped, and each byte that is not UTF-8 becomes U+FFFD.
std::string displayable(std::string_view text);

/// Whether the text is already as `displayable` would make it. Asked of paths, which cannot be changed and still be
/// true.
bool isDisplayable(std::string_view text);

/// The text as it is printed in a log, on a terminal or in a window: one line as by `displayable`, in which the
/// characters that change the direction of writing (U+061C, U+200E, U+200F, U+202A to U+202E, U+2066 to U+2069) are
/// written as their codes, such as "\u{202E}". Obeyed, they would show the text in another order than it has.
std::string printable(std::string_view text);

/// The same for each line of a text; line feeds (LF, CR LF) are kept.
std::string printableLines(std::string_view text);

/// How many characters a name or title has at most.
inline constexpr std::size_t longestName = 1000;

/// The text if it has at most `longestName` characters, else the first 999 of them and "…". A byte that is not UTF-8
/// counts as a character, and is U+FFFD in a text that was cut. Takes the same short time for a text of any length.
std::string shortened(std::string_view text);

/// A name or title as it is listed: `displayable` and at most `longestName` characters long.
std::string displayableName(std::string_view text);

/// The text as UTF-8, given its bytes in ISO 8859-1.
std::string utf8FromLatin1(std::string_view bytes);

/// The text with its upper-case letters as lower-case ones, in the manner of no particular language.
std::string lowerCase(std::string_view text);

}  // namespace DesktopSupport
