#pragma once

#include <source_location>
#include <string_view>

/// The fuzz targets. Each feeds one kind of outside input to the code and checks promises about the result.
namespace Fuzz {

/// Runs the target with an input. Each *Fuzzer.cpp, and so each program, defines it.
void run(std::string_view input);

/// Stops the process if a promise is not kept, which makes the input a finding.
void require(bool isKept, std::string_view promise, std::source_location where = std::source_location::current());

/// Stops the process if the text is not UTF-8.
void requireUTF8(std::string_view text, std::source_location where = std::source_location::current());

}  // namespace Fuzz
