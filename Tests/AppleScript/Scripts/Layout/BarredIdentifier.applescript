set |two words| to 3
|two words| + 1
--> 4
