    tell application "Deskloom" to get path of plugin "N"
--> "path(N)"
