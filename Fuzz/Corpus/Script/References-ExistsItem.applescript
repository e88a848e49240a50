{exists item 2 of {1}, exists item 1 of {1}, item 3 of {} exists}
--> {false, true, false}
