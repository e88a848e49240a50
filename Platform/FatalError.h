#pragma once

#include <source_location>
#include <string_view>

namespace Platform {

/// Stops the process over a state that cannot happen: writes "Fatal error: <message>: file <name>, line <n>" as one
/// line to standard error and aborts.
[[noreturn]] void fatalError(std::string_view message, std::source_location where = std::source_location::current());

}  // namespace Platform
