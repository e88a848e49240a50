    tell application "Deskloom" to get 1 + 2
--> 3
