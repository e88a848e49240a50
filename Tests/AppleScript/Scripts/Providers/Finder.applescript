    tell application "Finder"
        set result to ""
        
        repeat with x from 1 to (number of windows)
            set result to ((result & (get name of window x) & linefeed as string) & (get POSIX path of (target of window x as alias)) & linefeed as string)
        end repeat
    end tell
--> "Start\n/home/ann/\nDownloads\n/home/ann/Downloads/\n"
