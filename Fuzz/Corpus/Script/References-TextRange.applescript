text 2 thru 4 of "añbcd"
--> "ñbc"
