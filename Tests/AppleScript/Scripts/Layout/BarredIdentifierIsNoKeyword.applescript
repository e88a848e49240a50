set |repeat| to 1
|repeat|
--> 1
