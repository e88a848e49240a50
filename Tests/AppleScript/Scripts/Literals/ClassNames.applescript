{integer, text, string, list}
--> {integer, text, text, list}
