    tell application "Deskloom" to ring
--> "once"
