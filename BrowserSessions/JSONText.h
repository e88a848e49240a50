#pragma once

#include <cstddef>
#include <string>

namespace BrowserSessions {

/// The length of an escape for a code unit in JSON, such as \u0041.
inline constexpr std::size_t escapeLength = 6;

/// Cuts each string and number of a JSON text after `maximumSize` bytes of its written form, or after the escape that
/// crosses this limit, so that a parser needs little time and memory for each. A cut may split a character or a
/// surrogate pair. If the text is not JSON, any part of it may be lost. Allocates no memory.
void cutLongTokens(std::string& json, std::size_t maximumSize);

/// Replaces the escape of each surrogate without its partner by that of U+FFFD. A page's title may have one, and JSON
/// parsers refuse it.
void replaceLoneSurrogates(std::string& json);

}  // namespace BrowserSessions
