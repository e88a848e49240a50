set AppleScript's text item delimiters to ", "
{1, 2, 3} as text
--> "1, 2, 3"
