tell application "Test Desk"
    {name of window "downloads", id of window "Start"}
end tell
--> {"Downloads", 11}
