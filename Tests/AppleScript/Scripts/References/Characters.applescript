{character 2 of "añb", characters of "añ", characters 1 thru 2 of "abc", last character of "abc"}
--> {"ñ", {"a", "ñ"}, {"a", "b"}, "c"}
