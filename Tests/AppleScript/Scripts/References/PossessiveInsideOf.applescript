set r to {a:{b:{10, 20}}}
item 1 of r's a's b
--> 10
