{exists application "Nowhere", exists application "Test Desk"}
--> {false, true}
