    tell application "Deskloom" to hang
--! -1712 AppleEvent timed out.
--app Deskloom
