    tell application "Deskloom" to set config "T"
--! -1701 The action parameter is missing for set config.
