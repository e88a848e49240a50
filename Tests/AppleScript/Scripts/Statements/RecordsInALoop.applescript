set t to ""
repeat with r in {{name:"a"}, {name:"b"}}
set t to t & name of r
end repeat
t
--> "ab"
