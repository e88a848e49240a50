    tell application "Deskloom" to get config {a:1}
--! -1700 Can’t make {a:1} into type text.
--app Deskloom
