#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

#include "BrowserSessions/Firefox/LZ4Library.h"

namespace BrowserSessions {

/// The contents of a file that Firefox has compressed: "mozLz40" and a NUL, the size of the contents in four bytes, the
/// lowest first, and one LZ4 block. Fails with a sentence if the file has another form, if its size is wrong or more
/// than 128 MiB, or if `load` does.
std::expected<std::string, std::string> mozillaLZ4Contents(std::string_view file,
                                                           decltype(LZ4Library::load) load = LZ4Library::load);

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
