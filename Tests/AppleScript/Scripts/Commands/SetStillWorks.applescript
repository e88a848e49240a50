    tell application "Deskloom" to set x to get config "Z"
--> "config(Z)"
