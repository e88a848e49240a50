    tell application "Deskloom" to get config "none"
--> nothing
