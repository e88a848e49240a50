    tell application "Deskloom" to ring "dinner"
--> "for dinner"
