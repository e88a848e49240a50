    tell application "Deskloom" to get config 7
--> "config(7)"
