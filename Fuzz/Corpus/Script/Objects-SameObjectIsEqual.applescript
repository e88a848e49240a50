tell application "Test Desk"
    {window 1 = window "Start", window 1 = window 2, window 2 is in windows}
end tell
--> {true, false, true}
