tell application "Test Desk"
    properties of process 1
end tell
--> {name:"xterm", background only:false, file:alias "/usr/bin/xterm"}
