tell application "Test Desk"
    name of every process whose background only is false
end tell
--> {"xterm", "editor"}
