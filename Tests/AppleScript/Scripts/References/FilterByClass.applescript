items of {1, "a", {}} whose class is text
--> {"a"}
