#pragma once

#include <cstddef>
#include <string>

namespace BrowserSessions {

/// Cuts the strings and numbers of a JSON text, as they are written in it, after `maximumSize` bytes and the escape
/// that is there, so that a parser takes little time and memory for each. A character or a surrogate pair may be cut in
/// two. Of other texts, any part may be missing. Takes no memory.
void cutLongTokens(std::string& json, std::size_t maximumSize);

}  // namespace BrowserSessions
