    tell application "Closed Desk"
        set result to ""
        
        repeat with x from 1 to (number of windows)
            repeat with y from 1 to (get number of tabs of window x)
                set result to ((result & (get title of tab y of window x) & linefeed as string) & (get URL of tab y of window x) & linefeed as string)
            end repeat
        end repeat
    end tell
--! -600 Application isn’t running.
--app Closed Desk
