5
return
--> nothing
