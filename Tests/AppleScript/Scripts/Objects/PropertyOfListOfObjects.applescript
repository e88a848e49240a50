tell application "Test Desk"
    set l to every process
    name of l
end tell
--! -1728 Can’t get name of {process "xterm" of application "Test Desk", process "agent" of application "Test Desk", process "editor" of application "Test Desk"}.
