set n to "test desk"
name of application n
--> "Test Desk"
