    tell application "Deskloom" to get is plugin installed at path "/elsewhere"
--> false
