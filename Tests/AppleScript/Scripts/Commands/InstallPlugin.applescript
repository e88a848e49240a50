    tell application "Deskloom" to install plugin
--> nothing
