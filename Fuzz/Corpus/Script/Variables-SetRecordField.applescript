set r to {name:"a", n:1}
set n of r to 2
set r's name to "b"
r
--> {name:"b", n:2}
