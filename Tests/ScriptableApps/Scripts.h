#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "AppleScript/Script.h"
#include "ScriptableApps/ScriptableApplications.h"

namespace TestSupport {

/// Runs a script that can reach the real applications.
inline AppleScript::Result<std::optional<AppleScript::Value>> runScript(std::string_view source) {
  ScriptableApps::ScriptableApplications applications;
  const auto script = AppleScript::Script::compile(source, applications);
  if (!script)
    return std::unexpected(script.error());
  return script->run();
}

/// The text that a script yields; its error where it fails.
inline std::string textOfScript(std::string_view source) {
  const auto result = runScript(source);
  if (!result)
    return std::to_string(static_cast<int>(result.error().number)) + ": " + result.error().message;
  return *result ? (*result)->stringValue().value_or("no text") : "no value";
}

/// Yields the name and the path of each of the Finder's windows as a line each.
inline constexpr std::string_view listFolders = R"(
    tell application "Finder"
        set result to ""
        
        repeat with x from 1 to (number of windows)
            set result to ((result & (get name of window x) & linefeed as string) & (get POSIX path of (target of window x as alias)) & linefeed as string)
        end repeat
    end tell)";

}  // namespace TestSupport
