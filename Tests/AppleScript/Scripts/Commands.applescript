-- CommandOutsideTell
install plugin
--! -2741 Expected end of line but found identifier.

-- DirectParameterIsAnExpression
    tell application "Deskloom" to get config "A" & 1 + 1
--> "config(A2)"

-- DirectParameterMissing
    tell application "Deskloom" to get config
--! -2741 Expected expression but found end of line.

-- ForeignLabel
    tell application "Deskloom" to get config "T" action "A"
--! -2741 Expected end of line but found identifier.

-- GetConfig
    tell application "Deskloom" to get config "A"
--> "config(A)"

-- GetGlobalConfig
    tell application "Deskloom" to get global config "B"
--> "global config(B)"

-- GetIsInstalled
    tell application "Deskloom" to get is plugin installed at path "/there"
--> true

-- GetIsNotInstalled
    tell application "Deskloom" to get is plugin installed at path "/elsewhere"
--> false

-- GetPathOfPlugin
    tell application "Deskloom" to get path of plugin "N"
--> "path(N)"

-- GetPluginFolderPath
    tell application "Deskloom" to get plugin folder path
--> "/plugins"

-- InBlock
tell application "Deskloom"
set a to get config "A"
set config a & "!" action "B"
get path of plugin "P"
end tell
--> "path(P)"

-- InsideExpression
    tell application "Deskloom" to "<" & (get config "A") & ">"
--> "<config(A)>"

-- InstallPlugin
    tell application "Deskloom" to install plugin
--> nothing

-- LanguageWordsStillWork
    tell application "Deskloom" to get 1 + 2
--> 3

-- NoReply
    tell application "Deskloom" to get config "none"
--> nothing

-- NumberAsParameter
    tell application "Deskloom" to get config 7
--> "config(7)"

-- OptionalParameterGiven
    tell application "Deskloom" to ring "dinner"
--> "for dinner"

-- OptionalParameterLeftOut
    tell application "Deskloom" to ring
--> "once"

-- ParameterMissing
    tell application "Deskloom" to set config "T"
--! -1701 The action parameter is missing for set config.

-- SetConfig
    tell application "Deskloom" to set config "T" action "A"
--> nothing

-- SetGlobalConfig
    tell application "Deskloom" to set global config "{\"a\":\"x\\y\"}" action bundle id "B"
--> nothing

-- SetStillWorks
    tell application "Deskloom" to set x to get config "Z"
--> "config(Z)"

-- TimedOut
    tell application "Deskloom" to hang
--! -1712 AppleEvent timed out.
--app Deskloom

-- UnknownCommand
    tell application "Deskloom" to explode now
--! -2741 Expected end of line but found identifier.

-- WrongParameterType
    tell application "Deskloom" to get config {a:1}
--! -1700 Can’t make {a:1} into type text.
--app Deskloom
