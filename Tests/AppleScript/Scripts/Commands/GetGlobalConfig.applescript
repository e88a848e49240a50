    tell application "Deskloom" to get global config "B"
--> "global config(B)"
