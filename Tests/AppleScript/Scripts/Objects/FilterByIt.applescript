tell application "Test Desk"
    name of every process whose its name is "agent"
end tell
--> {"agent"}
