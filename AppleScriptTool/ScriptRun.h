#pragma once

#include <expected>
#include <string>

namespace AppleScriptTool {

/// What a script yields, as a line for the user: a text as it is, anything else as the language writes it; empty where
/// it yields nothing. Fails with the error, where in the script it is, and its number.
std::expected<std::string, std::string> runScript(const std::string& source);

}  // namespace AppleScriptTool
