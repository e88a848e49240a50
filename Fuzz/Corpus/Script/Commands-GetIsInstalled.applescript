    tell application "Deskloom" to get is plugin installed at path "/there"
--> true
