#pragma once

#include <expected>
#include <string>
#include <string_view>

namespace BrowserSessions {

/// What is in a file that Firefox has compressed: "mozLz40" and a NUL, the size of the contents in four bytes, the
/// lowest first, and one LZ4 block. Fails with a sentence where the file is not like this, its size is not the
/// contents' or more than 128 MiB.
std::expected<std::string, std::string> mozillaLZ4Contents(std::string_view file);

}  // namespace BrowserSessions
