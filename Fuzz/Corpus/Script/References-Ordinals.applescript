set l to {1, 2, 3, 4, 5}
{first item of l, second item of l, 3rd item of l, last item of l, middle item of l, front item of l}
--> {1, 2, 3, 5, 3, 1}
