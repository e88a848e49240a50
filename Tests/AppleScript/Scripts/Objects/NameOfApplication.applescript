name of application "Test Desk"
--> "Test Desk"
