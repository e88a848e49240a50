    tell application "Deskloom" to get config "T" action "A"
--! -2741 Expected end of line but found identifier.
