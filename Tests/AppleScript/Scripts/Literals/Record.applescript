{name:"x", size:{1, 2}}
--> {name:"x", size:{1, 2}}
