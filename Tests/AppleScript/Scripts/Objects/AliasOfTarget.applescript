tell application "Test Desk"
    POSIX path of (target of window 2 as alias)
end tell
--> "/home/ann/Downloads/"
