set AppleScript's text item delimiters to {", ", ";"}
{text items of "a, b;c", text item 2 of "a, b"}
--> {{"a", "b", "c"}, "b"}
