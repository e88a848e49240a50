#pragma once

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

}  // namespace BrowserSessions
