tell application "Test Desk"
    {class of window 1, class of window 1 is window, class of every tab of window 1}
end tell
--> {window, true, {tab, tab}}
