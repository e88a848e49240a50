{a:1} as record
--> {a:1}
