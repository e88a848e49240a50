tell application "Test Desk"
    set r to properties of process 1
    POSIX path of file of r
end tell
--> "/usr/bin/xterm"
