tell application "Test Desk"
    name of every process where name starts with "e" or background only
end tell
--> {"agent", "editor"}
