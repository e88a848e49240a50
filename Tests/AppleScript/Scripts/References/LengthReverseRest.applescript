set l to {1, 2, 3}
{length of l, reverse of l, rest of l, length of "añ"}
--> {3, {3, 2, 1}, {2, 3}, 2}
