tell application "Test Desk"
    tell window 2
        tab 5
    end tell
end tell
--! -1728 Can’t get tab 5 of window "Downloads".
