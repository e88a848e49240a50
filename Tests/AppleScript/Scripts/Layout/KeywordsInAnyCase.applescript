TELL Application "test desk" TO GET NUMBER OF Windows
--> 2
