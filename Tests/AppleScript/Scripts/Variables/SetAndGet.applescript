set x to 3
set y to x + 1
{x, y}
--> {3, 4}
