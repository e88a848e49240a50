#pragma once

#include <string_view>

namespace TestSupport {

/// Yields the name and the address of each of Safari's tabs as a line each.
inline constexpr std::string_view listTabs = R"(
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

/// The same, with a line in front of each window's that tells which of its tabs is shown.
inline constexpr std::string_view listWindows = R"(
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
