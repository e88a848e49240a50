    tell application "Deskloom" to "<" & (get config "A") & ">"
--> "<config(A)>"
