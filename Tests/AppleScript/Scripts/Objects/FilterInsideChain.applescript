tell application "Test Desk"
    name of every tab of window 1 whose URL contains "mail"
end tell
--> {"Mail"}
