tell application "Test Desk"
    {window 1, tab 2 of window 1, it}
end tell
--> {window "Start" of application "Test Desk", tab "Mail" of application "Test Desk", application "Test Desk"}
