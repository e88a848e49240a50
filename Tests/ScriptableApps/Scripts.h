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

/// The text that a script yields, or its error.
inline std::string textOfScript(std::string_view source) {
  const auto result = runScript(source);
  if (!result)
    return std::to_string(static_cast<int>(result.error().number)) + ": " + result.error().message;
  return *result ? (*result)->stringValue().value_or("no text") : "no value";
}

/// Yields the name and the path of each of the Finder's windows, each on a line.
inline constexpr std::string_view listFolders = R"(
    tell application "Finder"
        set result to ""
        
        repeat with x from 1 to (number of windows)
            set result to ((result & (get name of window x) & linefeed as string) & (get POSIX path of (target of window x as alias)) & linefeed as string)
        end repeat
    end tell)";

/// Yields the title and the address of each of Google Chrome's tabs, each on a line.
inline constexpr std::string_view listChromeTabs = R"(
    tell application "Google Chrome"
        set result to ""
        
        repeat with x from 1 to (number of windows)
            repeat with y from 1 to (get number of tabs of window x)
                set result to ((result & (get title of tab y of window x) & linefeed as string) & (get URL of tab y of window x) & linefeed as string)
            end repeat
        end repeat
    end tell)";

/// Yields the name and the address of each of Safari's tabs, each on a line.
inline constexpr std::string_view listSafariTabs = R"(
    set result to ""

    tell application "Safari"
        repeat with x from 1 to (number of windows)
            set subres to result
            repeat with y from 1 to (number of tabs of window x)
                set subres to ((subres & (get name of tab y of window x) & linefeed as string) & (get URL of tab y of window x) & linefeed as string)
            end repeat
            
            set result to subres
        end repeat
    end tell)";

/// The same, with a line before the tabs of each window that names its current tab.
inline constexpr std::string_view listSafariWindows = R"(
    set result to ""

    tell application "Safari"
        repeat with x from 1 to (number of windows)
            set subres to result & "a window that shows " & (get name of current tab of window x) & linefeed
            repeat with y from 1 to (number of tabs of window x)
                set subres to subres & (get name of tab y of window x) & linefeed & (get URL of tab y of window x) & linefeed
            end repeat

            set result to subres
        end repeat
    end tell)";

}  // namespace TestSupport
