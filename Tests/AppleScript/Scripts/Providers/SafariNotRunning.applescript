    set result to ""

    tell application "Closed Desk"
        repeat with x from 1 to (number of windows)
            set subres to result
            repeat with y from 1 to (number of tabs of window x)
                set subres to ((subres & (get name of tab y of window x) & linefeed as string) & (get URL of tab y of window x) & linefeed as string)
            end repeat
            
            set result to subres
        end repeat
    end tell
--! -600 Application isn’t running.
--app Closed Desk
