tell application "Test Desk" to my card
--> "Ann"
