tell application "Test Desk"
    set l to get properties of every process where background only is true
    name of item 1 of l
end tell
--> "agent"
