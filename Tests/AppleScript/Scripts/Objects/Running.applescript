{running of application "Test Desk", running of application "Closed Desk"}
--> {true, false}
