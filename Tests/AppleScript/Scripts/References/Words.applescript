{words of "Hello, big  world!", word 2 of "it isn't 42", count words of ""}
--> {{"Hello", "big", "world"}, "isn't", 0}
