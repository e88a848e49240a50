tell app "Test Desk" to tell process "xterm" to get name
--> "xterm"
