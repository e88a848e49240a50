tell application "Test Desk"
    set t to ""
    repeat with w in windows
    set t to t & name of w & linefeed
    end repeat
    t
end tell
--> "Start\nDownloads\n"
