tell application "Test Desk" to get name
--> "Test Desk"
