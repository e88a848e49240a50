    tell application "Deskloom" to set config "T" action "A"
--> nothing
