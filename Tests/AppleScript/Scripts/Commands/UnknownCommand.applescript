    tell application "Deskloom" to explode now
--! -2741 Expected end of line but found identifier.
