#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace DesktopSupport {

/// The text as one line of valid UTF-8. A tab or line break (LF, CR, CR LF as one, VT, FF, NEL, U+2028, U+2029) becomes
/// a space, other control characters, including NUL, are dropped, and each byte that is not UTF-8 becomes U+FFFD.
std::string displayable(std::string_view text);

/// Whether `displayable` leaves the text as it is. For paths, since a changed path would be another one.
bool isDisplayable(std::string_view text);

/// The text for a log, a terminal or a window: one line as by `displayable`, with the characters that change the
/// direction of writing (U+061C, U+200E, U+200F, U+202A to U+202E, U+2066 to U+2069) as their codes, such as
/// "\u{202E}". They could show the text in another order than it has.
std::string printable(std::string_view text);

/// The same for each line of a text; line feeds (LF, CR LF) are kept.
std::string printableLines(std::string_view text);

/// The longest name or title, in characters.
inline constexpr std::size_t longestName = 1000;

/// The text if it has at most `longestName` characters, otherwise the first 999 of them and "…". A byte that is not
/// UTF-8 counts as a character, and becomes U+FFFD in a text that is cut. Takes constant time beside the copy.
std::string shortened(std::string_view text);

/// A name or title for a list: `displayable` and at most `longestName` characters long.
std::string displayableName(std::string_view text);

/// The UTF-8 form of a text in ISO 8859-1.
std::string utf8FromLatin1(std::string_view bytes);

/// The text in lower case, by the rules of no particular language.
std::string lowerCase(std::string_view text);

}  // namespace DesktopSupport
