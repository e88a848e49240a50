#pragma once

#include <cstddef>

namespace AppleScript {

/// How deep anything may nest: expressions and blocks in a source (deeper is a syntax error), and the lists and records
/// that are compared, coerced, copied or written out as a whole (deeper is -2706).
inline constexpr std::size_t maximumNesting = 256;

}  // namespace AppleScript
