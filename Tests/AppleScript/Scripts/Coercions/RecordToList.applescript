{a:1, b:2} as list
--> {1, 2}
