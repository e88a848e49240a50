tell application "Test Desk"
    name of (every process)
end tell
--> {"xterm", "agent", "editor"}
