name of application "Closed Desk"
--> "Closed Desk"
