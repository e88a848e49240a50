{POSIX file "/a", file "/b", alias "/c"}
--> {alias "/a", alias "/b", alias "/c"}
