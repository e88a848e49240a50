    tell application "Deskloom" to get config "A" & 1 + 1
--> "config(A2)"
