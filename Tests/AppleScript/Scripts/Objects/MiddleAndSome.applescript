tell application "Test Desk"
    {name of middle process, name of some window is in {"Start", "Downloads"}}
end tell
--> {"agent", true}
