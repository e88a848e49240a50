set r to {a:{b:{10, 20}}}
r's a's b's item 2
--> 20
