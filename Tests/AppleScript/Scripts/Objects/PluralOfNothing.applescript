tell application "Empty Desk" to name of every window
--> {}
