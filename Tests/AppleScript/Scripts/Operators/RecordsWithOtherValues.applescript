{{a:1} = {a:2}, {a:1, b:2} = {a:1, b:3}, {a:1} = {b:1}, {a:1, b:2} contains {b:3}, {a:1, b:2} contains {c:2}}
--> {false, false, false, false, false}
