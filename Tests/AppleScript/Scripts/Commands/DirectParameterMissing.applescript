    tell application "Deskloom" to get config
--! -2741 Expected expression but found end of line.
