5
tell application "Deskloom" to install plugin
result
--> 5
