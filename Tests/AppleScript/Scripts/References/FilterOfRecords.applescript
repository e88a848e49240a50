name of every item of {{name:"a", n:1}, {name:"b", n:2}} where n of it > 1
--> {"b"}
