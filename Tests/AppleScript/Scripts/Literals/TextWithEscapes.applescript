"a\"b\\c\n\r\t"
--> "a\"b\\c\n\r\t"
