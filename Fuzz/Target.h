#pragma once

#include <source_location>
#include <string_view>

/// The fuzz targets. Each looks at one thing that comes from outside, and holds what is made of it against promises.
namespace Fuzz {

/// What a target does with an input: *Fuzzer.cpp defines it, one for each program.
void run(std::string_view input);

/// Stops the process, which makes the input a finding, where a promise is not kept.
void require(bool isKept, std::string_view promise, std::source_location where = std::source_location::current());

/// Stops the process where the text is not UTF-8.
void requireUTF8(std::string_view text, std::source_location where = std::source_location::current());

}  // namespace Fuzz
