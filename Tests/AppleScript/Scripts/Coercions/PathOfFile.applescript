POSIX path of (file "/a b/ü")
--> "/a b/ü"
