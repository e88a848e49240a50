#pragma once

#include <string>
#include <string_view>

namespace BrowserSessions {

/// The UTF-8 form of a text in UTF-16, given its bytes, the lower byte of each unit first. A surrogate without its
/// partner becomes U+FFFD, and so does NUL; half a unit at the end is left out.
std::string utf8FromUtf16(std::string_view bytes);

}  // namespace BrowserSessions
