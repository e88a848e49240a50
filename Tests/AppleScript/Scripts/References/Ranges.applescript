{items 2 thru 3 of {1, 2, 3, 4}, items 2 through -1 of {1, 2, 3}, items -2 thru -1 of {1, 2, 3}}
--> {{2, 3}, {2, 3}, {2, 3}}
