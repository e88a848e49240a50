tell application "Deskloom"
set a to get config "A"
set config a & "!" action "B"
get path of plugin "P"
end tell
--> "path(P)"
