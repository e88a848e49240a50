POSIX path of "/a"
--> "/a"
