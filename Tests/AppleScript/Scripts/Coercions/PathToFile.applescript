"/tmp/x" as alias
--> alias "/tmp/x"
