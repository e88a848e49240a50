(POSIX file "/tmp/x") as text
--> "/tmp/x"
