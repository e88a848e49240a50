    tell application "Deskloom" to set global config "{\"a\":\"x\\y\"}" action bundle id "B"
--> nothing
