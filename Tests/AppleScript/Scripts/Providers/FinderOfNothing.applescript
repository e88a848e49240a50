    tell application "Empty Desk"
        set result to ""
        
        repeat with x from 1 to (number of windows)
            set result to ((result & (get name of window x) & linefeed as string) & (get POSIX path of (target of window x as alias)) & linefeed as string)
        end repeat
    end tell
--> ""
