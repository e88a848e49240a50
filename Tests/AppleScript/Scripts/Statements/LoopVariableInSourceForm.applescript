repeat with x in {"a"}
get x
end repeat
--> item 1 of {"a"}
